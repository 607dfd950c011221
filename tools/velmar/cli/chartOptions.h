#pragma once

#include <string>

#include "chart/chart.h"
#include "cli/jobs.h"

namespace CLI {
class App;
}

namespace velmar::tool {

/// Reads the argument of --bounds, west,east,south,north. Throws CLI::ValidationError.
GeoBox parseBounds(const std::string& text);

/// Adds --size.
void addSizeOption(CLI::App& command, ChartOptions& chart);

/// Adds --map. The files become further inputs of the call.
void addMapOption(CLI::App& command, ChartOptions& chart, OutputOptions& output);

/// Adds the options that say what a chart looks like, but for its bounds: --size, --fill, --centers, --map.
void addSheetOptions(CLI::App& command, ChartOptions& chart, OutputOptions& output);

/// The same where --fill may name a quantity of wind files.
void addSheetOptions(CLI::App& command, ChartOptions& chart, OutputOptions& output,
                     std::optional<WindQuantity>& fillQuantity);

/// Takes the word of "--fill speed" out of the list of inputs: an option whose word may be left out cannot tell
/// its word from a file. A word that is a file as well is taken for the file. Throws CLI::RequiredError when
/// there is no other input.
std::optional<WindQuantity> takeFillQuantity(std::vector<std::string>& inputs);

}  // namespace velmar::tool
