#include "chart/chartTexts.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cmath>

#include "chart/layers/mapLayer.h"
#include "chart/paper/mapFrame.h"
#include "chart/stationChart.h"
#include "common/text.h"
#include "compute/levelSpacing.h"

namespace velmar::tool {
namespace {

std::string timesText(const files::FieldHeader& field) {
    std::string text = startTimeText(field);
    const auto valid = validTimeText(field);
    if (field.forecastHour != 0) text += fmt::format(" + {} h", field.forecastHour);
    if (field.forecastHour != 0 && valid) text += ", valid " + *valid;
    const std::string level = levelText(field.level);
    return level.empty() ? text : level + "   " + text;
}

std::string levelsText(const ContourSet& set, float boldValue) {
    const std::vector<float> levels = levelsOf(set);
    if (levels.empty()) return "no lines";
    const float step = evenStep(levels);
    std::string text;
    if (step > 0) {
        text = fmt::format("lines {} to {} every {}", plainNumber(levels.front()), plainNumber(levels.back()),
                           plainNumber(step));
    } else {
        std::vector<std::string> values;
        values.reserve(levels.size());
        for (const float level : levels) values.push_back(plainNumber(level));
        text = fmt::format("lines {}", fmt::join(values, ", "));
    }
    const float spacing = spacingOf(levels);
    const bool hasBold =
        std::ranges::any_of(levels, [&](float level) { return isBoldLevel(level, boldValue, spacing); });
    return hasBold ? text + ", bold " + plainNumber(boldValue) : text;
}

/// A grid or picture: where it lies and what it holds inside the area shown.
struct Content {
    GeoBox bounds;
    bool circlesGlobe;
    PlacedExtremes extremes;

    bool covers(const GeoBox& shown) const {
        const double shift = 360 * std::floor((shown.west - bounds.west) / 360);
        const bool allLongitudes = circlesGlobe || shown.east <= bounds.east + shift;
        return extremes.missing == 0 && allLongitudes && bounds.south <= shown.south &&
               shown.north <= bounds.north;
    }
};

std::string extremesText(const PlacedExtremes& extremes, std::string_view most, std::string_view least) {
    if (extremes.present == 0) return "no data in this area";
    return fmt::format("{} {}, {} {}", most, placedText(extremes.largest), least,
                       placedText(extremes.smallest));
}

std::string quantityText(WindQuantity quantity) {
    return fmt::format("{}, {}", quantity == WindQuantity::speed ? "wind speed" : quantityName(quantity),
                       quantity == WindQuantity::speed ? "m/s" : "10⁻⁵ s⁻¹");
}

std::string strongestText(const PlacedExtremes& speeds) {
    if (speeds.present == 0) return "no data in this area";
    const auto& [speed, longitude, latitude] = speeds.largest;
    return fmt::format("strongest wind {:.1f} m/s at {} {}", speed, latitudeText(latitude),
                       longitudeText(longitude));
}

bool isInside(const GeoBox& area, float longitude, float latitude) {
    const auto [first, last] = circlesInto(area, longitude, longitude);
    return first <= last && area.south <= latitude && latitude <= area.north;
}

PlacedExtremes findExtremes(const StationFile& file, int element, const GeoBox& area) {
    PlacedExtremes extremes;
    for (std::size_t k = 0; k < file.stationCount(); ++k) {
        if (!file.hasValue(k, element) || !isInside(area, file.longitudes[k], file.latitudes[k])) continue;
        const PlacedValue place{file.value(k, element), file.longitudes[k], file.latitudes[k]};
        if (extremes.present == 0 || place.value < extremes.smallest.value) extremes.smallest = place;
        if (extremes.present == 0 || place.value > extremes.largest.value) extremes.largest = place;
        ++extremes.present;
    }
    return extremes;
}

std::string plotText(const StationFile& file, const StationPlot& plot) {
    std::string text = plot.quantity.empty() ? "values" : plot.quantity;
    if (file.elementCount > 1) text += fmt::format(" (field {})", plot.element);
    if (plot.wind) text += ", and wind";
    return text;
}

}  // namespace

ChartTexts textsOf(const GridFile& file, const GlobeGrid& grid, const ContourSet& lines,
                   const GeoBox& shown) {
    Content content{boundsOf(grid.lattice), grid.circlesGlobe(),
                    findExtremes(grid.grid, grid.lattice, &shown)};
    const float spacing = spacingOf(levelsOf(lines));
    for (PlacedValue* extreme : {&content.extremes.smallest, &content.extremes.largest})
        extreme->value = roundedFor(spacing, extreme->value);
    return {.title = file.title,
            .subtitle = timesText(file.header.field),
            .caption = levelsText(lines, file.header.boldValue),
            .extremes = extremesText(content.extremes, "highest", "lowest"),
            .hasNoData = !content.covers(shown)};
}

ChartTexts textsOf(const ByteImageFile& image, const GeoBox& shown) {
    const grid::Grid& grid = image.grid;
    const Content content{boundsOf(image), image.circlesGlobe(),
                          findExtremes(grid.view(), image.lattice, &shown)};
    return {.title = image.title,
            .subtitle = image.time,
            .caption = fmt::format("{} x {} pixels of {}° x {}°", grid.nx, grid.ny,
                                   plainNumber(std::fabs(image.lattice.longitudeStep)),
                                   plainNumber(std::fabs(image.lattice.latitudeStep))),
            .extremes = extremesText(content.extremes, "brightest", "darkest"),
            .hasNoData = !content.covers(shown)};
}

ChartTexts textsOf(const WindGrid& file, const GlobeGrid& field, bool hasColours, WindQuantity quantity,
                   const GeoBox& shown) {
    const Content content{boundsOf(field.lattice), field.circlesGlobe(),
                          findExtremes(field.grid, field.lattice, &shown)};
    const GridFile speed = windQuantity(file, WindQuantity::speed);
    const PlacedExtremes speeds = findExtremes(speed.values, file.header.lattice, &shown);
    return {.title = file.title,
            .subtitle = timesText(file.header),
            .caption = "streamlines, arrow heads downwind" +
                       (hasColours ? "; colours: " + quantityText(quantity) : ""),
            .extremes = strongestText(speeds),
            .hasNoData = !content.covers(shown)};
}

ChartTexts textsOf(const LineMap& map) {
    const bool hasBorders =
        std::ranges::any_of(map.lines, [](const LineMap::DrawnLine& line) { return isBorder(line); });
    return {
        .title = map.title,
        .subtitle = {},
        .caption = fmt::format("{} line{}, {} points{}", map.lines.size(), map.lines.size() == 1 ? "" : "s",
                               map.points.size(), hasBorders ? "; coasts dark, borders light" : ""),
        .extremes = {},
        .hasNoData = false};
}

ChartTexts textsOf(const StationFile& file, const StationPlot& plot, const GeoBox& shown) {
    return {.title = file.title,
            .subtitle = file.hasTime() ? timesText(file.field) : "",
            .caption = plotText(file, plot),
            .extremes = extremesText(findExtremes(file, plot.element, shown), "highest", "lowest"),
            .hasNoData = false};
}

ChartTexts textsOf(const StationFile& file, const StationPlot& plot, const ContourSet& lines,
                   const GeoBox& shown) {
    ChartTexts texts = textsOf(file, plot, shown);
    texts.caption += "; " + levelsText(lines, file.boldValue);
    return texts;
}

}  // namespace velmar::tool
