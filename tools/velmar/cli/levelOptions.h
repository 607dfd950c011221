#pragma once

#include <string>
#include <vector>

#include "read/gridFile.h"

namespace CLI {
class App;
}

namespace velmar::tool {

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

/// Adds --levels, --interval and --auto to a command.
void addLevelOptions(CLI::App& command, LevelOptions& options);

}  // namespace velmar::tool
