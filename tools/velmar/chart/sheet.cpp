#include "chart/paper/sheet.h"

#include "chart/layers/graticuleLayer.h"
#include "chart/paper/margins.h"

namespace velmar::tool {
namespace {

constexpr PaperSize customarySize{1400, 900};
/// Titles need so much, however narrow the map.
constexpr double leastWidth = 700;

constexpr double leftMargin = degreesWidth + 8;
constexpr double rightMargin = 30;
constexpr double topMargin = titleHeight;
constexpr double bottomMargin = degreesHeight + captionHeight;

Sheet lay(const Bounds& bounds, PaperSize size, double right) {
    const PaperBox room{leftMargin, topMargin, size.width - leftMargin - right,
                        size.height - topMargin - bottomMargin};
    return {size, fitMap(bounds, room)};
}

}  // namespace

Sheet layOut(const Bounds& bounds, const std::optional<PaperSize>& size, double barWidth) {
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

}  // namespace velmar::tool
