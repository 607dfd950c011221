#pragma once

#include "cli/levels.h"
#include "read/stationFile.h"

namespace velmar::tool {

/// The levels for values that come from a station file, rising: those that the user asks for, or else those that
/// the file asks for, if any lies inside the data, or else automatic ones.
LevelPlan planStationLevels(const LevelOptions& options, const StationFile& file,
                            const grid::GridView& values);

}  // namespace velmar::tool
