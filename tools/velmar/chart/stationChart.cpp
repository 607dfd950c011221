#include "chart/stationChart.h"

#include <fmt/format.h>

#include <algorithm>

#include "chart/layers/graticuleLayer.h"
#include "chart/layers/isolineLayer.h"
#include "chart/layers/mapLayer.h"
#include "chart/layers/stationLayer.h"
#include "chart/layers/stationPlotLayer.h"
#include "chart/layers/triangleLayer.h"
#include "chart/sheet.h"
#include "common/text.h"
#include "compute/analysisGrid.h"

namespace velmar::tool {
namespace {

/// An area with room for plots at its edges.
GeoBox widened(const GeoBox& bounds) {
    const double width = bounds.east - bounds.west;
    const double margin = 0.04 * std::max(width, bounds.north - bounds.south);
    const double across = std::min(margin, (360 - width) / 2);
    return {bounds.west - across, bounds.east + across, std::max(bounds.south - margin, -90.0),
            std::min(bounds.north + margin, 90.0)};
}

/// The area of the stations with a value; where there is none, of those with a wind.
GeoBox boundsOf(const StationFile& file, const StationPlot& plot) {
    analysis::Stations stations = file.withValue(plot.element);
    if (stations.values.empty() && plot.wind) stations = file.withValue(plot.wind->speed);
    if (stations.values.empty())
        throw Problem(fmt::format("no station has a value of element {}", plot.element));
    return widened(boundsRound(stations.view()));
}

}  // namespace

std::string drawStationChart(const StationFile& file, const StationPlot& plot, const ChartOptions& options,
                             const std::string& format) {
    const GeoBox shown = options.bounds.value_or(boundsOf(file, plot));
    const Sheet sheet = layOut(shown, options.size, 0);
    Layers layers;
    layers.push_back(std::make_unique<GraticuleLayer>(graticuleOnWhite));
    addMaps(layers, options.maps, mapOnWhite);
    layers.push_back(std::make_unique<StationPlotLayer>(file, plot));
    return drawSheet(
        sheet, layers, textsOf(file, plot, shown), [](cairo_t*) {}, format);
}

std::string drawTriangleChart(const StationFile& file, const StationPlot& plot,
                              const StationContours& contours, bool withNetwork, const ChartOptions& options,
                              const std::string& format) {
    const ContourSet& lines = contours.lines;
    const GeoBox shown = options.bounds.value_or(boundsOf(lines.lattice));
    const Sheet sheet = layOut(shown, options.size, 0);
    const auto& [longitudes, latitudes, values] = contours.stations;
    std::vector<PlacedValue> stations;
    for (std::size_t k = 0; k < values.size(); ++k)
        stations.push_back({values[k], longitudes[k], latitudes[k]});

    Layers layers;
    layers.push_back(std::make_unique<GraticuleLayer>(graticuleOnWhite));
    if (withNetwork) layers.push_back(std::make_unique<TriangleLayer>(contours));
    addMaps(layers, options.maps, mapOnWhite);
    layers.push_back(std::make_unique<IsolineLayer>(lines, file.boldValue));
    layers.push_back(std::make_unique<StationLayer>(stations));
    return drawSheet(
        sheet, layers, textsOf(file, plot, lines, shown), [](cairo_t*) {}, format);
}

}  // namespace velmar::tool
