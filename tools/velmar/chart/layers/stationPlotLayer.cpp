#include "chart/layers/stationPlotLayer.h"

#include <fmt/format.h>

#include <cmath>
#include <numbers>

#include "chart/layers/stationSymbol.h"
#include "chart/layers/windBarb.h"
#include "chart/paper/lettering.h"
#include "common/text.h"

namespace velmar::tool {
namespace {

// Lengths are in units of paper.
constexpr Lettering valueLettering{.size = 11.5, .colour = {0.75, 0.05, 0.05}, .halo = 1.5};
constexpr double shaftLength = 30;
constexpr double valueGap = 3;       ///< between a symbol and its value
constexpr double spaceRound = 5;     ///< round a plot
constexpr double calmRing = 3;       ///< round a symbol
constexpr double leastSpeed = 1.25;  ///< that barbs can show
constexpr double mostSpeed = 200;

bool isCalm(double speed) { return speed < leastSpeed; }

TurnedBox widened(TurnedBox box) {
    box.size = {box.size.width + spaceRound, box.size.height + spaceRound};
    return box;
}

}  // namespace

std::optional<StationPlotLayer::PlottedWind> StationPlotLayer::windOf(std::size_t station) const {
    if (!plot_.wind || !file_.hasValue(station, plot_.wind->direction) ||
        !file_.hasValue(station, plot_.wind->speed))
        return std::nullopt;
    const PlottedWind wind{file_.value(station, plot_.wind->direction),
                           file_.value(station, plot_.wind->speed)};
    const bool isWind =
        wind.direction >= 0 && wind.direction <= 360 && wind.speed >= 0 && wind.speed <= mostSpeed;
    return isWind ? std::optional(wind) : std::nullopt;
}

std::optional<int> StationPlotLayer::cloudOf(std::size_t station) const {
    constexpr float skyHidden = 9;
    if (!plot_.cloud || !file_.hasValue(station, *plot_.cloud)) return std::nullopt;
    const float eighths = file_.value(station, *plot_.cloud);
    const bool isCloud = eighths >= 0 && eighths <= skyHidden && eighths == std::floor(eighths);
    return isCloud ? std::optional(static_cast<int>(eighths)) : std::nullopt;
}

StationPlotLayer::Plot StationPlotLayer::plotOf(std::size_t station) const {
    Plot plot{.place = {},
              .value = {},
              .valueCenter = {},
              .wind = windOf(station),
              .cloud = cloudOf(station),
              .southern = file_.latitudes[station] < 0};
    if (file_.hasValue(station, plot_.element)) plot.value = plainNumber(file_.value(station, plot_.element));
    return plot;
}

void StationPlotLayer::place(Page& page) {
    for (const bool withValue : {true, false}) {
        for (std::size_t k = 0; k < file_.stationCount(); ++k) {
            if (file_.hasValue(k, plot_.element) != withValue) continue;
            Plot plot = plotOf(k);
            if (!withValue && !plot.wind && !plot.cloud) continue;
            bool placed = false;
            const auto [first, last] = circlesInto(page.map.bounds, file_.longitudes[k], file_.longitudes[k]);
            for (int circles = first; circles <= last; ++circles) {
                plot.place = page.map.toPaper(file_.longitudes[k] + 360.0 * circles, file_.latitudes[k]);
                placed = placePlot(page, plot) || placed;
            }
            placed_ += placed;
        }
    }
}

bool StationPlotLayer::placePlot(Page& page, Plot plot) {
    const double radius =
        stationSymbolRadius(plot.cloud) + (plot.wind && isCalm(plot.wind->speed) ? calmRing : 0);
    // Measuring a text takes long, and most stations of a long list have no room.
    const TurnedBox mark{plot.place, {2 * radius, 2 * radius}, 0};
    if (!isInside(mark, page.map.box) || !page.taken.isFree(mark)) return false;
    const PaperSize text = measureText(page.ink, plot.value, valueLettering);
    // The value keeps out of the way of the shaft.
    const bool fromWest = plot.wind && std::sin(plot.wind->direction * std::numbers::pi / 180) < -1e-6;
    const double side = fromWest ? 1 : -1;
    plot.valueCenter = plot.place + PaperPoint{side * (radius + valueGap + text.width / 2), 0};

    const double width = 2 * radius + (plot.value.empty() ? 0 : valueGap + text.width);
    const TurnedBox symbol{plot.place + PaperPoint{side * (width / 2 - radius), 0},
                           {width, plot.value.empty() ? 2 * radius : std::max(2 * radius, text.height)},
                           0};
    std::vector<TurnedBox> rooms{widened(symbol)};
    if (plot.wind && !isCalm(plot.wind->speed))
        rooms.push_back(widened(
            windBarbBox(plot.place, plot.wind->direction, plot.wind->speed, plot.southern, shaftLength)));
    const bool hasRoom = std::ranges::all_of(rooms, [&](const TurnedBox& room) {
        return isInside(room, page.map.box) && page.taken.isFree(room);
    });
    if (!hasRoom) return false;
    for (const TurnedBox& room : rooms) page.taken.take(room);
    plots_.push_back(std::move(plot));
    return true;
}

void StationPlotLayer::draw(Page& page) const {
    for (const Plot& plot : plots_) draw(page.ink, plot);
}

void StationPlotLayer::draw(cairo_t* ink, const Plot& plot) const {
    setColour(ink, black);
    if (plot.wind && isCalm(plot.wind->speed)) {
        cairo_new_path(ink);
        cairo_arc(ink, plot.place.x, plot.place.y, stationSymbolRadius(plot.cloud) + calmRing, 0,
                  2 * std::numbers::pi);
        cairo_set_line_width(ink, 1);
        cairo_stroke(ink);
    } else if (plot.wind) {
        drawWindBarb(ink, plot.place, plot.wind->direction, plot.wind->speed, plot.southern, shaftLength);
    }
    drawStationSymbol(ink, plot.place, plot.cloud);
    if (!plot.value.empty()) drawText(ink, plot.value, plot.valueCenter, Anchor::center, valueLettering);
}

std::string StationPlotLayer::remark() const {
    return fmt::format("{} of {} stations", placed_, file_.stationCount());
}

}  // namespace velmar::tool
