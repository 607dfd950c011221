#pragma once

#include <string>
#include <vector>

#include "read/gridFile.h"
#include "read/stationFile.h"

namespace velmar::tool {

/// More lines than this cannot be told apart on any chart; a file that asks for them has a slip in its header.
inline constexpr int mostLevels = 1000;

/// What the user said about levels; at most one of the three is set.
struct LevelOptions {
    std::vector<float> list;
    float interval = 0;
    int automaticCount = 0;

    bool given() const { return !list.empty() || interval > 0 || automaticCount > 0; }
};

/// The levels to draw.
struct LevelPlan {
    std::vector<float> levels;
    std::string notice;  ///< what the user should know about the choice; empty when it is the one asked for
};

/// Decides the levels for values without a header. Without options they are automatic.
LevelPlan planLevels(const LevelOptions& options, const grid::GridView& values);

/// Decides the levels for a grid file. Without options they are those of its header, or automatic ones where
/// the header gives no line.
LevelPlan planLevels(const LevelOptions& options, const GridFile& file);

/// The levels for values that come from a station file, rising: those that the user asks for, or else those that
/// the file asks for, if any lies inside the data, or else automatic ones.
LevelPlan planStationLevels(const LevelOptions& options, const StationFile& file,
                            const grid::GridView& values);

}  // namespace velmar::tool
