#include "chart/margins.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cmath>

#include "chart/coverageLayer.h"
#include "chart/graticuleLayer.h"
#include "chart/isolineLayer.h"
#include "chart/lettering.h"
#include "text.h"

namespace velmar::tool {
namespace {

constexpr Lettering titleLettering{.size = 21, .bold = true};
constexpr Lettering subtitleLettering{.size = 15};
constexpr Lettering captionLettering{.size = 13.5};
constexpr double edge = 12;  ///< left free at the right edge of the sheet

std::string timesText(const frame::FieldHeader& field) {
    std::string text = startTimeText(field);
    const auto valid = validTimeText(field);
    if (field.forecastHour != 0) text += fmt::format(" + {} h", field.forecastHour);
    if (field.forecastHour != 0 && valid) text += ", valid " + *valid;
    const std::string level = levelText(field.level);
    return level.empty() ? text : level + "   " + text;
}

bool isEven(const std::vector<float>& levels, float spacing) {
    return std::ranges::all_of(levels, [&](float level) {
        const float steps = (level - levels.front()) / spacing;
        return std::fabs(steps - std::round(steps)) < 0.01F;
    });
}

std::string levelsText(const ContourSet& set, float boldValue) {
    const std::vector<float> levels = levelsOf(set);
    if (levels.empty()) return "no lines";
    const float spacing = spacingOf(levels);
    std::string text;
    if (levels.size() > 2 && isEven(levels, spacing)) {
        text = fmt::format("lines {} to {} every {}", plainNumber(levels.front()), plainNumber(levels.back()),
                           plainNumber(spacing));
    } else {
        std::vector<std::string> values;
        values.reserve(levels.size());
        for (const float level : levels) values.push_back(plainNumber(level));
        text = fmt::format("lines {}", fmt::join(values, ", "));
    }
    const bool hasBold =
        std::ranges::any_of(levels, [&](float level) { return isBoldLevel(level, boldValue, spacing); });
    return hasBold ? text + ", bold " + plainNumber(boldValue) : text;
}

std::string extremesText(const Extremes& extremes) {
    if (extremes.present == 0) return "no data in this area";
    return fmt::format("highest {}, lowest {}", placedText(extremes.largest), placedText(extremes.smallest));
}

/// Whether the grid has data everywhere in the area shown.
bool isCovered(const ContourSet& set, const Bounds& shown, const Extremes& extremes) {
    const Bounds own = boundsOf(set.lattice);
    const double shift = 360 * std::floor((shown.west - own.west) / 360);
    const bool allLongitudes = set.circlesGlobe() || shown.east <= own.east + shift;
    return extremes.missing == 0 && allLongitudes && own.south <= shown.south && shown.north <= own.north;
}

/// A sample of the grey at the right end of a line of the caption.
void drawNoDataKey(cairo_t* ink, double right, double y) {
    const PaperSize size = measureText(ink, "no data", captionLettering);
    drawText(ink, "no data", {right, y}, Anchor::right, captionLettering);
    cairo_rectangle(ink, right - size.width - 30, y - 7, 24, 14);
    setColour(ink, noDataGrey);
    cairo_fill_preserve(ink);
    setColour(ink, black);
    cairo_set_line_width(ink, 0.75);
    cairo_stroke(ink);
}

}  // namespace

void drawTitle(cairo_t* ink, const MapFrame& map, PaperSize sheet, const GridFile& file) {
    const double left = map.box.left;
    const double top = map.box.top - titleHeight;
    const double width = sheet.width - edge - left;
    drawText(ink, file.title, {left, top + 22}, Anchor::left, titleLettering, 0, width);
    drawText(ink, timesText(file.header.field), {left, top + 48}, Anchor::left, subtitleLettering, 0, width);
}

void drawCaption(cairo_t* ink, const MapFrame& map, PaperSize sheet, const GridFile& file,
                 const ContourSet& set) {
    constexpr double keyWidth = 110;
    const double left = map.box.left;
    const double width = sheet.width - edge - left;
    const double first = map.box.bottom() + degreesHeight + 14;
    const double second = first + 20;
    const Extremes extremes = findExtremes(set.grid, set.lattice, &map.bounds);
    drawText(ink, levelsText(set, file.header.boldValue), {left, first}, Anchor::left, captionLettering, 0,
             width - keyWidth);
    drawText(ink, extremesText(extremes), {left, second}, Anchor::left, captionLettering, 0, width);
    if (!isCovered(set, map.bounds, extremes)) drawNoDataKey(ink, map.box.right(), first);
}

}  // namespace velmar::tool
