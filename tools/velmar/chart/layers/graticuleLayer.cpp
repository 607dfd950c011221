#include "chart/layers/graticuleLayer.h"

#include <array>

#include "chart/paper/lettering.h"
#include "common/text.h"

namespace velmar::tool {
namespace {

constexpr Lettering degrees{.size = 13, .colour = {0.2, 0.2, 0.2}};

/// The finest customary distance of lines (degrees) that leaves so much paper between them.
double stepFor(double span, double paper, double leastPaper) {
    constexpr std::array steps{0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0, 15.0, 20.0, 30.0, 45.0, 60.0};
    const auto step = std::ranges::find_if(steps, [&](double s) { return s / span * paper >= leastPaper; });
    return step == steps.end() ? 90.0 : *step;
}

/// Multiples of the step from low to high.
std::vector<double> multiples(double low, double high, double step) {
    constexpr double tolerance = 1e-6;
    std::vector<double> values;
    const int first = static_cast<int>(std::ceil(low / step - tolerance));
    const int last = static_cast<int>(std::floor(high / step + tolerance));
    for (int k = first; k <= last; ++k) values.push_back(k * step);
    return values;
}

std::vector<double> meridians(const MapFrame& map) {
    const auto& [west, east, south, north] = map.bounds;
    return multiples(west, east, stepFor(east - west, map.box.width, 75));
}

std::vector<double> parallels(const MapFrame& map) {
    const auto& [west, east, south, north] = map.bounds;
    return multiples(south, north, stepFor(north - south, map.box.height, 60));
}

}  // namespace

void GraticuleLayer::draw(Page& page) const {
    const auto& [west, east, south, north] = page.map.bounds;
    const auto add = [&](PaperPoint from, PaperPoint to) {
        cairo_move_to(page.ink, from.x, from.y);
        cairo_line_to(page.ink, to.x, to.y);
    };
    for (const double longitude : meridians(page.map))
        add(page.map.toPaper(longitude, south), page.map.toPaper(longitude, north));
    for (const double latitude : parallels(page.map))
        add(page.map.toPaper(west, latitude), page.map.toPaper(east, latitude));
    constexpr std::array dashes{1.0, 3.0};
    cairo_save(page.ink);
    cairo_set_dash(page.ink, dashes.data(), dashes.size(), 0);
    cairo_set_line_width(page.ink, 1);
    setColour(page.ink, colour_);
    cairo_stroke(page.ink);
    cairo_restore(page.ink);
}

void drawFrame(cairo_t* ink, const MapFrame& map) {
    const PaperBox& box = map.box;
    cairo_rectangle(ink, box.left, box.top, box.width, box.height);
    setColour(ink, black);
    cairo_set_line_width(ink, 1.5);
    cairo_stroke(ink);
    for (const double longitude : meridians(map)) {
        const double x = map.toPaper(longitude, map.bounds.south).x;
        drawText(ink, longitudeText(longitude), {x, box.bottom() + degreesHeight / 2}, Anchor::center,
                 degrees);
    }
    for (const double latitude : parallels(map)) {
        const double y = map.toPaper(map.bounds.west, latitude).y;
        drawText(ink, latitudeText(latitude), {box.left - 6, y}, Anchor::right, degrees);
    }
}

}  // namespace velmar::tool
