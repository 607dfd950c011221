#include "chart/stationChart.h"

#include <fmt/format.h>

#include <algorithm>

#include "chart/drawSheet.h"
#include "chart/layers/graticuleLayer.h"
#include "chart/layers/mapLayer.h"
#include "chart/layers/stationPlotLayer.h"
#include "cli/problem.h"
#include "compute/analysisGrid.h"

namespace velmar::tool {
namespace {

/// An area with room for plots at its edges.
Bounds widened(const Bounds& bounds) {
    const double width = bounds.east - bounds.west;
    const double margin = 0.04 * std::max(width, bounds.north - bounds.south);
    const double across = std::min(margin, (360 - width) / 2);
    return {bounds.west - across, bounds.east + across, std::max(bounds.south - margin, -90.0),
            std::min(bounds.north + margin, 90.0)};
}

/// The area of the stations with a value; where there is none, of those with a wind.
Bounds boundsOf(const StationFile& file, const StationPlot& plot) {
    analysis::Stations stations = file.withValue(plot.element);
    if (stations.values.empty() && plot.wind) stations = file.withValue(plot.wind->speed);
    if (stations.values.empty())
        throw Problem(fmt::format("no station has a value of element {}", plot.element));
    return widened(boundsRound(stations.view()));
}

}  // namespace

std::string drawChart(const StationFile& file, const StationPlot& plot, const ChartOptions& options,
                      const std::string& format) {
    const Bounds shown = options.bounds.value_or(boundsOf(file, plot));
    const Sheet sheet = layOut(shown, options.size, 0);
    Layers layers;
    layers.push_back(std::make_unique<GraticuleLayer>(graticuleOnWhite));
    addMaps(layers, options.maps, mapOnWhite);
    layers.push_back(std::make_unique<StationPlotLayer>(file, plot));
    return drawSheet(
        sheet, layers, textsOf(file, plot, shown), [](cairo_t*) {}, format);
}

}  // namespace velmar::tool
