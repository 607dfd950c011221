#pragma once

#include <string>

#include "chart/stationChart.h"
#include "compute/triangles.h"

namespace velmar::tool {

/// Draws the contour lines of stations, with the stations and, if asked for, the triangles, and returns the chart as
/// a file of the format (png, svg or pdf). Its area is that of the stations when the options have none.
std::string drawChart(const StationFile& file, const StationPlot& plot, const StationContours& contours,
                      bool withNetwork, const ChartOptions& options, const std::string& format);

}  // namespace velmar::tool
