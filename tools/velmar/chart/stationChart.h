#pragma once

#include <optional>
#include <string>

#include "chart/chart.h"
#include "compute/triangles.h"
#include "read/stationElements.h"
#include "read/stationFile.h"

namespace velmar::tool {

/// What is plotted at a station: elements of its file. What a station has no value of is left out.
struct StationPlot {
    int element;                       ///< whose values are written
    std::string quantity;              ///< what it is, with its unit, for the caption; may be empty
    std::optional<WindElements> wind;  ///< drawn as barbs
    std::optional<int> cloud;          ///< eighths, drawn in the stations' circles
};

/// Draws plots of as many stations as there is room for, and returns the chart as a file of the format (png, svg
/// or pdf). Its area is that of the stations that have something to plot when the options have none. A Problem
/// when there is no such station.
std::string drawStationChart(const StationFile& file, const StationPlot& plot, const ChartOptions& options,
                             const std::string& format);

/// Draws the contour lines of stations, with the stations and, if asked for, the triangles, and returns the chart as
/// a file of the format (png, svg or pdf). Its area is that of the stations when the options have none.
std::string drawTriangleChart(const StationFile& file, const StationPlot& plot,
                              const StationContours& contours, bool withNetwork, const ChartOptions& options,
                              const std::string& format);

}  // namespace velmar::tool
