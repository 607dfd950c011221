#include "chart/chart.h"

#include "chart/flowField.h"
#include "chart/layers/centerLayer.h"
#include "chart/layers/coverageLayer.h"
#include "chart/layers/fillLayer.h"
#include "chart/layers/graticuleLayer.h"
#include "chart/layers/imageLayer.h"
#include "chart/layers/isolineLayer.h"
#include "chart/layers/mapLayer.h"
#include "chart/layers/regionLayer.h"
#include "chart/layers/stationLayer.h"
#include "chart/layers/streamlineLayer.h"
#include "chart/paper/colourBar.h"
#include "chart/paper/palette.h"
#include "chart/sheet.h"

namespace velmar::tool {
namespace {

/// Of streamlines over colours.
constexpr Colour streamlineInk{0.12, 0.12, 0.16};

/// What lies below the lines.
Layers groundOf(const ContourSet& set, const std::optional<Fill>& fill, const std::vector<LineMap>& maps) {
    Layers layers;
    if (fill) {
        layers.push_back(
            std::make_unique<CoverageLayer>(fill->grid.view(), fill->lattice, fill->colours.front()));
        layers.push_back(std::make_unique<FillLayer>(*fill));
        layers.push_back(std::make_unique<GraticuleLayer>(graticuleOnColours));
    } else {
        layers.push_back(std::make_unique<CoverageLayer>(set.grid, set.lattice, white));
        layers.push_back(std::make_unique<GraticuleLayer>(graticuleOnWhite));
    }
    addMaps(layers, maps, fill ? mapOnColours : mapOnWhite);
    return layers;
}

/// The bands between the levels, if they are asked for. Without levels there are none.
std::optional<Fill> fillOf(const ContourSet& set, const ChartOptions& options) {
    const bool hasBands = options.fill && !ascending(set.levels).empty();
    return hasBands ? std::optional(fillContours(set)) : std::nullopt;
}

Layers layersOf(const GridFile& file, const ContourSet& set, const std::optional<Fill>& fill,
                const ChartOptions& options, const std::vector<PlacedValue>& stations) {
    Layers layers = groundOf(set, fill, options.maps);
    layers.push_back(std::make_unique<IsolineLayer>(set, file.header.boldValue));
    layers.push_back(std::make_unique<StationLayer>(stations));
    if (options.centers) layers.push_back(std::make_unique<CenterLayer>(set));
    return layers;
}

}  // namespace

std::string drawGridChart(const GridFile& file, const ContourSet& set, const ChartOptions& options,
                          const std::string& format, const PlottedStations& stations) {
    const GeoBox shown = options.bounds.value_or(boundsOf(set.lattice));
    const auto fill = fillOf(set, options);
    const Sheet sheet = layOut(shown, options.size, fill ? bandBarWidth(fill->levels) : 0);
    const auto drawBar = [&](cairo_t* ink) {
        if (fill) drawBandBar(ink, sheet.map, fill->levels, fill->colours);
    };
    ChartTexts texts = textsOf(file, set, shown);
    if (!stations.remark.empty()) texts.subtitle += "   " + stations.remark;
    return drawSheet(sheet, layersOf(file, set, fill, options, stations.stations), texts, drawBar, format);
}

std::string drawImageChart(const ByteImageFile& image, const ChartOptions& options,
                           const std::string& format) {
    const GeoBox shown = options.bounds.value_or(boundsOf(image));
    const Sheet sheet = layOut(shown, options.size, greyBarWidth());
    Layers layers;
    layers.push_back(std::make_unique<ImageLayer>(image));
    layers.push_back(std::make_unique<GraticuleLayer>(graticuleOnGreys));
    addMaps(layers, options.maps, mapOnGreys);
    const auto drawBar = [&](cairo_t* ink) { drawGreyBar(ink, sheet.map); };
    return drawSheet(sheet, layers, textsOf(image, shown), drawBar, format);
}

std::string drawMapChart(const LineMap& map, const ChartOptions& options, const std::string& format) {
    const GeoBox shown = options.bounds.value_or(boundsOf(map));
    const Sheet sheet = layOut(shown, options.size, 0);
    const bool hasNames = std::ranges::any_of(map.lines, [](const auto& line) { return !line.name.empty(); });
    Layers layers;
    if (hasNames) layers.push_back(std::make_unique<RegionLayer>(map));
    layers.push_back(std::make_unique<GraticuleLayer>(graticuleOnWhite));
    addMaps(layers, options.maps, mapOnWhite);
    layers.push_back(std::make_unique<MapLayer>(map, mapOnColours));
    if (hasNames) layers.push_back(std::make_unique<RegionNameLayer>(map));
    return drawSheet(
        sheet, layers, textsOf(map), [](cairo_t*) {}, format);
}

std::string drawWindChart(const WindGrid& file, const WindColours& colours, std::optional<int> density,
                          const ChartOptions& options, const std::string& format) {
    ContourSet field = drawContours(colours.values, {});
    field.levels = colours.levels;
    const GeoBox shown = options.bounds.value_or(boundsOf(field.lattice));
    const std::vector<float>& levels = colours.levels;
    const Sheet sheet = layOut(shown, options.size, levels.empty() ? 0 : bandBarWidth(levels));

    const auto fill = fillOf(field, options);
    const std::vector<Colour> bands = fill ? fill->colours : lineColours(levels.size() + 1);
    std::vector<float> lineLevels{0};
    if (!fill) lineLevels.insert(lineLevels.end(), levels.begin(), levels.end());
    const WindGrid flow = flowField(file, sheet.map);
    const StreamlineSet streamlines =
        traceStreamlines(flow, density.value_or(densityFor(flow, sheet.map)), lineLevels);

    Layers layers = groundOf(field, fill, options.maps);
    layers.push_back(std::make_unique<StreamlineLayer>(streamlines, flow.header.lattice,
                                                       fill ? std::vector{streamlineInk} : bands));
    const auto drawBar = [&](cairo_t* ink) {
        if (!levels.empty()) drawBandBar(ink, sheet.map, levels, bands);
    };
    return drawSheet(sheet, layers, textsOf(file, field, colours.quantity, shown), drawBar, format);
}

}  // namespace velmar::tool
