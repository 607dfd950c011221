#pragma once

#include <optional>
#include <string>

#include "chart/paper.h"
#include "contours.h"

namespace velmar::tool {

struct ChartOptions {
    std::optional<Bounds> bounds;   ///< the grid's own when not set
    std::optional<PaperSize> size;  ///< a customary one, cut to the map's shape, when not set
    bool centers = true;
};

/// Draws the chart of a grid and its lines and returns it as a file of the format (png, svg or pdf).
std::string drawChart(const GridFile& file, const ContourSet& set, const ChartOptions& options,
                      const std::string& format);

}  // namespace velmar::tool
