#include "chart/chart.h"

#include "chart/canvas.h"
#include "chart/centerLayer.h"
#include "chart/colourBar.h"
#include "chart/coverageLayer.h"
#include "chart/fillLayer.h"
#include "chart/flowField.h"
#include "chart/graticuleLayer.h"
#include "chart/imageLayer.h"
#include "chart/isolineLayer.h"
#include "chart/margins.h"
#include "chart/palette.h"
#include "chart/stationLayer.h"
#include "chart/streamlineLayer.h"

namespace velmar::tool {
namespace {

// Colours of the graticule.
constexpr Colour onWhite{0.55, 0.55, 0.55};
constexpr Colour onColours{0.35, 0.35, 0.35};
constexpr Colour onGreys{1.0, 0.85, 0.2};

/// Of streamlines over colours.
constexpr Colour streamlineInk{0.12, 0.12, 0.16};

/// What lies below the lines.
Layers groundOf(const ContourSet& set, const std::optional<Fill>& fill) {
    Layers layers;
    if (fill) {
        layers.push_back(
            std::make_unique<CoverageLayer>(fill->grid.view(), fill->lattice, fill->colours.front()));
        layers.push_back(std::make_unique<FillLayer>(*fill));
        layers.push_back(std::make_unique<GraticuleLayer>(onColours));
    } else {
        layers.push_back(std::make_unique<CoverageLayer>(set.grid, set.lattice, white));
        layers.push_back(std::make_unique<GraticuleLayer>(onWhite));
    }
    return layers;
}

/// The bands between the levels, if they are asked for. Without levels there are none.
std::optional<Fill> fillOf(const ContourSet& set, const ChartOptions& options) {
    const bool hasBands = options.fill && !ascending(set.levels).empty();
    return hasBands ? std::optional(fillContours(set)) : std::nullopt;
}

Layers layersOf(const GridFile& file, const ContourSet& set, const std::optional<Fill>& fill, bool centers,
                const std::vector<PlacedValue>& stations) {
    Layers layers = groundOf(set, fill);
    layers.push_back(std::make_unique<IsolineLayer>(set, file.header.boldValue));
    layers.push_back(std::make_unique<StationLayer>(stations));
    if (centers) layers.push_back(std::make_unique<CenterLayer>(set));
    return layers;
}

/// What charts of all kinds have in common.
std::string drawSheet(const Sheet& sheet, const Layers& layers, const ChartTexts& texts,
                      const std::function<void(cairo_t*)>& drawBar, const std::string& format) {
    return renderPage(format, sheet.size, [&](cairo_t* ink) {
        Page page{ink, sheet.map, {}};
        drawMap(page, layers);
        drawBar(ink);
        drawTitle(ink, sheet, texts);
        drawCaption(ink, sheet, texts);
    });
}

}  // namespace

std::string drawChart(const GridFile& file, const ContourSet& set, const ChartOptions& options,
                      const std::string& format, const PlottedStations& stations) {
    const Bounds shown = options.bounds.value_or(boundsOf(set.lattice));
    const auto fill = fillOf(set, options);
    const Sheet sheet = layOut(shown, options.size, fill ? bandBarWidth(fill->levels) : 0);
    const auto drawBar = [&](cairo_t* ink) {
        if (fill) drawBandBar(ink, sheet.map, fill->levels, fill->colours);
    };
    ChartTexts texts = textsOf(file, set, shown);
    if (!stations.remark.empty()) texts.subtitle += "   " + stations.remark;
    return drawSheet(sheet, layersOf(file, set, fill, options.centers, stations.stations), texts, drawBar,
                     format);
}

std::string drawChart(const ByteImageFile& image, const ChartOptions& options, const std::string& format) {
    const Bounds shown = options.bounds.value_or(boundsOf(image));
    const Sheet sheet = layOut(shown, options.size, greyBarWidth());
    Layers layers;
    layers.push_back(std::make_unique<ImageLayer>(image));
    layers.push_back(std::make_unique<GraticuleLayer>(onGreys));
    const auto drawBar = [&](cairo_t* ink) { drawGreyBar(ink, sheet.map); };
    return drawSheet(sheet, layers, textsOf(image, shown), drawBar, format);
}

std::string drawChart(const WindFile& file, const WindColours& colours, std::optional<int> density,
                      const ChartOptions& options, const std::string& format) {
    ContourSet field = drawContours(colours.values, {});
    field.levels = colours.levels;
    const Bounds shown = options.bounds.value_or(boundsOf(field.lattice));
    const std::vector<float>& levels = colours.levels;
    const Sheet sheet = layOut(shown, options.size, levels.empty() ? 0 : bandBarWidth(levels));

    const auto fill = fillOf(field, options);
    const std::vector<Colour> bands = fill ? fill->colours : lineColours(levels.size() + 1);
    std::vector<float> lineLevels{0};
    if (!fill) lineLevels.insert(lineLevels.end(), levels.begin(), levels.end());
    const WindFile flow = flowField(file, sheet.map);
    const StreamlineSet streamlines =
        traceStreamlines(flow, density.value_or(densityFor(flow, sheet.map)), lineLevels);

    Layers layers = groundOf(field, fill);
    layers.push_back(std::make_unique<StreamlineLayer>(streamlines, flow.header.lattice,
                                                       fill ? std::vector{streamlineInk} : bands));
    const auto drawBar = [&](cairo_t* ink) {
        if (!levels.empty()) drawBandBar(ink, sheet.map, levels, bands);
    };
    return drawSheet(sheet, layers, textsOf(file, field, colours.quantity, shown), drawBar, format);
}

}  // namespace velmar::tool
