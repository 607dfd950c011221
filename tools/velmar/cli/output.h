#pragma once

#include <string>
#include <string_view>

namespace velmar::tool {

/// Writes a whole output file, or to standard output when the name is "-". Nobody ever sees half of a file:
/// it gets its name when it is complete. A Problem when it cannot be written.
void writeOutput(const std::string& name, const std::string& bytes);

/// Writing to a standard stream that is closed, full or a broken pipe fails from now on, and does no other harm. To
/// be called before any file is opened.
void guardStandardStreams();

/// Writes to standard error. That nobody can read there is no reason to stop.
void writeStandardError(std::string_view text);

}  // namespace velmar::tool
