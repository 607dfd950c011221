#pragma once

#include "compute/levels.h"

namespace velmar::tool {

class Command;

/// Adds --levels, --interval and --auto to a command.
void addLevelOptions(Command& command, LevelOptions& options);

}  // namespace velmar::tool
