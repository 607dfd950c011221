#pragma once

#include <string>

#include "chart/chart.h"

namespace CLI {
class App;
}

namespace velmar::tool {

/// Reads the argument of --bounds, west,east,south,north. Throws CLI::ValidationError.
Bounds parseBounds(const std::string& text);

/// Adds the options that say what a chart looks like, but for its bounds: --size, --fill, --centers.
void addSheetOptions(CLI::App& command, ChartOptions& chart);

}  // namespace velmar::tool
