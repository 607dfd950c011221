#pragma once

#include <optional>

#include "base/records.h"
#include "base/scanner.h"

namespace velmar::files {

/// Reads a region file until the header of a region cannot be read; nullopt when the file itself has no header. A
/// region that lacks points is the last one, with the points that could be read.
std::optional<base::NamedOutlines> readRegions(base::TextScanner& in);

}  // namespace velmar::files
