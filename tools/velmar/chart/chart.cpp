#include "chart/chart.h"

#include "chart/canvas.h"
#include "chart/centerLayer.h"
#include "chart/coverageLayer.h"
#include "chart/graticuleLayer.h"
#include "chart/isolineLayer.h"
#include "chart/margins.h"
#include "chart/page.h"

namespace velmar::tool {
namespace {

constexpr PaperSize customarySize{1400, 900};
/// Titles need so much, however narrow the map.
constexpr double leastWidth = 700;

constexpr double leftMargin = degreesWidth + 8;
constexpr double rightMargin = 30;
constexpr double topMargin = titleHeight;
constexpr double bottomMargin = degreesHeight + captionHeight;

struct Sheet {
    PaperSize size;
    MapFrame map;
};

Sheet lay(const Bounds& bounds, PaperSize size) {
    const PaperBox room{leftMargin, topMargin, size.width - leftMargin - rightMargin,
                        size.height - topMargin - bottomMargin};
    return {size, fitMap(bounds, room)};
}

/// Without a size of the user's the sheet is cut to the map.
Sheet layOut(const Bounds& bounds, const std::optional<PaperSize>& size) {
    if (size) return lay(bounds, *size);
    const PaperBox box = lay(bounds, customarySize).map.box;
    return lay(bounds, {std::max(leastWidth, box.width + leftMargin + rightMargin),
                        box.height + topMargin + bottomMargin});
}

Layers layersOf(const GridFile& file, const ContourSet& set, const ChartOptions& options) {
    Layers layers;
    layers.push_back(std::make_unique<CoverageLayer>(set));
    layers.push_back(std::make_unique<GraticuleLayer>());
    layers.push_back(std::make_unique<IsolineLayer>(set, file.header.boldValue));
    if (options.centers) layers.push_back(std::make_unique<CenterLayer>(set));
    return layers;
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

}  // namespace

std::string drawChart(const GridFile& file, const ContourSet& set, const ChartOptions& options,
                      const std::string& format) {
    const Bounds own = boundsOf(set.lattice);
    const Sheet sheet = layOut(options.bounds.value_or(own), options.size);
    return renderPage(format, sheet.size, [&](cairo_t* ink) {
        Page page{ink, sheet.map, {}};
        drawMap(page, layersOf(file, set, options));
        drawTitle(ink, sheet.map, sheet.size, file);
        drawCaption(ink, sheet.map, sheet.size, file, set);
    });
}

}  // namespace velmar::tool
