#pragma once

#include <string_view>

namespace velmar::tool {

/// Makes standard streams that are closed, full or broken pipes an error of the one who writes there. To be called
/// before any file is opened.
void guardStandardStreams();

/// Writes to standard error. That nobody can read there is no reason to stop.
void writeStandardError(std::string_view text);

}  // namespace velmar::tool
