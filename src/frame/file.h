#pragma once

#include <optional>
#include <string>

namespace velmar::frame {

/// The bytes of a regular file, or nothing when it cannot be opened. Anything else than a regular file counts
/// as not to be opened: a directory has no bytes, and a pipe or a device could keep the host waiting for
/// ever.
std::optional<std::string> readWholeFile(const char* path);

/// The same for the readers of data files, which name a file that they cannot open on standard error.
std::optional<std::string> readDataFile(const char* path);

}  // namespace velmar::frame
