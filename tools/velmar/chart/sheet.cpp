#include "chart/sheet.h"

#include "chart/layers/coverageLayer.h"
#include "chart/layers/graticuleLayer.h"
#include "chart/paper/canvas.h"
#include "chart/paper/lettering.h"

namespace velmar::tool {
namespace {

/// Height of the title above the map, and of the caption below its degrees.
constexpr double titleHeight = 66;
constexpr double captionHeight = 52;

constexpr PaperSize customarySize{1400, 900};
/// Titles need so much, however narrow the map.
constexpr double leastWidth = 700;

constexpr double leftMargin = degreesWidth + 8;
constexpr double rightMargin = 30;
constexpr double topMargin = titleHeight;
constexpr double bottomMargin = degreesHeight + captionHeight;

Sheet lay(const GeoBox& bounds, PaperSize size, double right) {
    const PaperBox room{leftMargin, topMargin, size.width - leftMargin - right,
                        size.height - topMargin - bottomMargin};
    return {size, fitMap(bounds, room)};
}

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

Sheet layOut(const GeoBox& bounds, const std::optional<PaperSize>& size, double barWidth) {
    const double right = rightMargin + barWidth;
    if (size) return lay(bounds, *size, right);
    const PaperBox box = lay(bounds, customarySize, right).map.box;
    return lay(bounds,
               {std::max(leastWidth, box.width + leftMargin + right), box.height + topMargin + bottomMargin},
               right);
}

void drawMap(Page& page, const Layers& layers) {
    for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer) (*layer)->place(page);
    const PaperBox& box = page.map.box;
    cairo_save(page.ink);
    cairo_rectangle(page.ink, box.left, box.top, box.width, box.height);
    cairo_clip(page.ink);
    for (const auto& layer : layers) layer->draw(page);
    cairo_restore(page.ink);
    drawFrame(page.ink, page.map);
}

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

std::string drawSheet(const Sheet& sheet, const Layers& layers, ChartTexts texts,
                      const std::function<void(cairo_t*)>& drawBar, const std::string& format) {
    return renderPage(format, sheet.size, [&](cairo_t* ink) {
        Page page{ink, sheet.map, {}};
        drawMap(page, layers);
        drawBar(ink);
        for (const auto& layer : layers) {
            const std::string remark = layer->remark();
            if (!remark.empty()) texts.caption += "; " + remark;
        }
        drawTitle(ink, sheet, texts);
        drawCaption(ink, sheet, texts);
    });
}

}  // namespace velmar::tool
