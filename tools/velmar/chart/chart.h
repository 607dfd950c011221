#pragma once

#include <optional>
#include <string>
#include <vector>

#include "chart/paper/paper.h"
#include "compute/contours.h"
#include "compute/windQuantity.h"
#include "read/byteImageFile.h"
#include "read/lineMap.h"

namespace velmar::tool {

struct ChartOptions {
    std::optional<GeoBox> bounds;   ///< those of the grid or picture when not set
    std::optional<PaperSize> size;  ///< a customary one, cut to the map's shape, when not set
    bool centers = true;
    bool fill = false;
    std::vector<LineMap> maps;  ///< drawn over areas and pictures and under all else
};

/// Stations to be plotted.
struct PlottedStations {
    std::vector<PlacedValue> stations;
    std::string remark;  ///< what the user should know about them
};

/// What the colours of a wind chart stand for.
struct WindColours {
    WindQuantity quantity;
    const GridFile& values;     ///< of the quantity, as they are to be shown
    std::vector<float> levels;  ///< rising
};

// All draw a chart and return it as a file of the format (png, svg or pdf).

/// A grid and its lines at the levels, and the stations that it was made from, if any. Lines and bands of a grid that is
/// finer than the paper are those of its means there; centres and extremes are those of the grid itself.
std::string drawGridChart(const GridFile& file, const std::vector<float>& levels, const ChartOptions& options,
                          const std::string& format, const PlottedStations& stations = {});

/// A byte image as a picture. Options of lines play no part.
std::string drawImageChart(const ByteImageFile& image, const ChartOptions& options,
                           const std::string& format);

/// Lines of a map; those of regions with their names.
std::string drawMapChart(const LineMap& map, const ChartOptions& options, const std::string& format);

/// A wind field with its streamlines over bands of a quantity or, when the chart is not filled, coloured by
/// bands of their speed: the quantity is speed then. Without a density they get one that suits the map.
std::string drawWindChart(const WindGrid& file, const WindColours& colours, std::optional<int> density,
                          const ChartOptions& options, const std::string& format);

}  // namespace velmar::tool
