#pragma once

#include <string>

#include "chart/chart.h"
#include "cli/jobs.h"

namespace velmar::tool {

class Command;

/// Reads the argument of --bounds, west,east,south,north. Throws a UsageError.
GeoBox parseBounds(const std::string& text);

/// Adds --size.
void addSizeOption(Command& command, ChartOptions& chart);

/// Adds --map. The files become further inputs of the call.
void addMapOption(Command& command, ChartOptions& chart, OutputOptions& output);

/// Adds the options that say what a chart looks like, but for its bounds: --size, --fill, --centers, --map.
void addSheetOptions(Command& command, ChartOptions& chart, OutputOptions& output);

/// The same where --fill may name a quantity of wind files.
void addSheetOptions(Command& command, ChartOptions& chart, OutputOptions& output,
                     std::optional<WindQuantity>& fillQuantity);

/// Takes the word of "--fill speed" out of the list of inputs: an option whose word may be left out cannot tell
/// its word from a file. A word that is a file as well is taken for the file. Throws a UsageError when
/// there is no other input.
std::optional<WindQuantity> takeFillQuantity(std::vector<std::string>& inputs);

}  // namespace velmar::tool
