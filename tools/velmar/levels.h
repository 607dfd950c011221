#pragma once

#include <string>
#include <vector>

#include "gridFile.h"

namespace CLI {
class App;
}

namespace velmar::tool {

/// What the user said about levels; at most one of the three is set.
struct LevelOptions {
    std::vector<float> list;
    float interval = 0;
    int automaticCount = 0;
};

/// The modes of the library's contouring.
enum class LevelMode { header = 0, automatic = 1, list = 2 };

/// What the library is asked to draw.
struct LevelPlan {
    LevelMode mode = LevelMode::header;
    int count = 0;
    std::vector<float> list;
    std::string notice;  ///< what the user should know about the choice; empty when it is the one asked for
};

/// Decides the levels for a grid. Without options they are those of the file's header, or automatic ones
/// where the header gives no line.
LevelPlan planLevels(const LevelOptions& options, const GridFile& file);

/// Adds --levels, --interval and --auto to a command.
void addLevelOptions(CLI::App& command, LevelOptions& options);

}  // namespace velmar::tool
