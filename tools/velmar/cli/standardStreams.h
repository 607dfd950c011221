#pragma once

#include <string_view>

namespace velmar::tool {

/// Writing to a standard stream that is closed, full or a broken pipe fails from now on, and does no other harm. To
/// be called before any file is opened.
void guardStandardStreams();

/// Writes to standard error. That nobody can read there is no reason to stop.
void writeStandardError(std::string_view text);

}  // namespace velmar::tool
