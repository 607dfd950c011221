#include "chart/paper/margins.h"

#include "chart/layers/coverageLayer.h"
#include "chart/layers/graticuleLayer.h"
#include "chart/paper/lettering.h"

namespace velmar::tool {
namespace {

constexpr Lettering titleLettering{.size = 21, .bold = true};
constexpr Lettering subtitleLettering{.size = 15};
constexpr Lettering captionLettering{.size = 13.5};
constexpr double edge = 12;  ///< left free at the right edge of the sheet

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

void drawTitle(cairo_t* ink, const Sheet& sheet, const ChartTexts& texts) {
    const double left = sheet.map.box.left;
    const double top = sheet.map.box.top - titleHeight;
    const double width = sheet.size.width - edge - left;
    drawText(ink, texts.title, {left, top + 22}, Anchor::left, titleLettering, 0, width);
    drawText(ink, texts.subtitle, {left, top + 48}, Anchor::left, subtitleLettering, 0, width);
}

void drawCaption(cairo_t* ink, const Sheet& sheet, const ChartTexts& texts) {
    constexpr double keyWidth = 110;
    const PaperBox& map = sheet.map.box;
    const double width = sheet.size.width - edge - map.left;
    const double first = map.bottom() + degreesHeight + 14;
    const double second = first + 20;
    drawText(ink, texts.caption, {map.left, first}, Anchor::left, captionLettering, 0,
             texts.hasNoData ? width - keyWidth : width);
    drawText(ink, texts.extremes, {map.left, second}, Anchor::left, captionLettering, 0, width);
    if (texts.hasNoData) drawNoDataKey(ink, map.right(), first);
}

}  // namespace velmar::tool
