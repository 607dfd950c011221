#pragma once

#include "compute/levels.h"

namespace CLI {
class App;
}

namespace velmar::tool {

/// Adds --levels, --interval and --auto to a command.
void addLevelOptions(CLI::App& command, LevelOptions& options);

}  // namespace velmar::tool
