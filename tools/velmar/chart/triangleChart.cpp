#include "chart/triangleChart.h"

#include "chart/drawSheet.h"
#include "chart/layers/graticuleLayer.h"
#include "chart/layers/isolineLayer.h"
#include "chart/layers/mapLayer.h"
#include "chart/layers/stationLayer.h"
#include "chart/layers/triangleLayer.h"

namespace velmar::tool {

std::string drawChart(const StationFile& file, const StationPlot& plot, const StationContours& contours,
                      bool withNetwork, const ChartOptions& options, const std::string& format) {
    const ContourSet& lines = contours.lines;
    const Bounds shown = options.bounds.value_or(boundsOf(lines.lattice));
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
