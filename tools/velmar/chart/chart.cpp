#include "chart/chart.h"

#include <cmath>

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
#include "compute/levelSpacing.h"

namespace velmar::tool {
namespace {

/// Of streamlines over colours.
constexpr Colour streamlineInk{0.12, 0.12, 0.16};

/// What lies below the lines.
Layers groundOf(const GlobeGrid& grid, const std::optional<Fill>& fill, const std::vector<LineMap>& maps) {
    Layers layers;
    if (fill) {
        layers.push_back(std::make_unique<CoverageLayer>(fill->grid, fill->lattice, fill->colours.front()));
        layers.push_back(std::make_unique<FillLayer>(*fill));
        layers.push_back(std::make_unique<GraticuleLayer>(graticuleOnColours));
    } else {
        layers.push_back(std::make_unique<CoverageLayer>(grid.grid, grid.lattice, white));
        layers.push_back(std::make_unique<GraticuleLayer>(graticuleOnWhite));
    }
    addMaps(layers, maps, fill ? mapOnColours : mapOnWhite);
    return layers;
}

/// The levels of the bands between them, if those are asked for.
std::vector<float> bandLevels(const std::vector<float>& levels, const ChartOptions& options) {
    return options.fill ? ascending(levels) : std::vector<float>();
}

/// A grid of which no more columns and rows are left than can be seen on the map. It may be a view of the whole.
GlobeGrid visibleGrid(const GlobeGrid& whole, const MapFrame& map, const std::string& format) {
    // Points of paper are pixels only where they cannot be enlarged.
    const double leastSpacing = format == "png" ? 1 : 0.5;
    const PaperPoint from = map.toPaper(0, 0);
    const PaperPoint to = map.toPaper(whole.lattice.longitudeStep, whole.lattice.latitudeStep);
    const auto visible = [&](int lines, double spacing) {
        // A grid that is hardly finer than the paper is worth its points.
        const bool isFiner = std::fabs(spacing) < 0.75 * leastSpacing;
        return isFiner ? static_cast<int>(std::ceil((lines - 1) * std::fabs(spacing) / leastSpacing)) + 1
                       : lines;
    };
    const int columns = visible(whole.grid.nx, to.x - from.x);
    const int rows = visible(whole.grid.ny, to.y - from.y);
    if (columns < whole.grid.nx || rows < whole.grid.ny) return thinned(whole, columns, rows);
    return {{.values = {}}, whole.grid, whole.lattice};
}

}  // namespace

std::string drawGridChart(const GridFile& file, const std::vector<float>& levels, const ChartOptions& options,
                          const std::string& format, const PlottedStations& stations) {
    const GlobeGrid whole = onGlobe(file);
    const GeoBox shown = options.bounds.value_or(boundsOf(whole.lattice));
    const std::vector<float> bands = bandLevels(levels, options);
    const Sheet sheet = layOut(shown, options.size, bands.empty() ? 0 : bandBarWidth(bands));
    const ContourSet set = drawContours(visibleGrid(whole, sheet.map, format), levels);
    const auto fill = bands.empty() ? std::nullopt : std::optional(fillContours(set));

    Layers layers = groundOf(set, fill, options.maps);
    layers.push_back(std::make_unique<IsolineLayer>(set, file.header.boldValue));
    layers.push_back(std::make_unique<StationLayer>(stations.stations));
    if (options.centers) layers.push_back(std::make_unique<CenterLayer>(whole, spacingOf(levelsOf(set))));
    const auto drawBar = [&](cairo_t* ink) {
        if (fill) drawBandBar(ink, sheet.map, fill->levels, fill->colours);
    };
    ChartTexts texts = textsOf(file, whole, set, shown);
    if (!stations.remark.empty()) texts.subtitle += "   " + stations.remark;
    return drawSheet(sheet, layers, texts, drawBar, format);
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
    const GlobeGrid whole = onGlobe(colours.values);
    const GeoBox shown = options.bounds.value_or(boundsOf(whole.lattice));
    const std::vector<float>& levels = colours.levels;
    const Sheet sheet = layOut(shown, options.size, levels.empty() ? 0 : bandBarWidth(levels));

    ContourSet field = drawContours(visibleGrid(whole, sheet.map, format), {});
    field.levels = levels;
    const bool isFilled = !bandLevels(levels, options).empty();
    const auto fill = isFilled ? std::optional(fillContours(field)) : std::nullopt;
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
    return drawSheet(sheet, layers, textsOf(file, whole, !levels.empty(), colours.quantity, shown), drawBar,
                     format);
}

}  // namespace velmar::tool
