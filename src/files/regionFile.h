#pragma once

#include <optional>

#include "base/namedOutlines.h"
#include "base/scanner.h"

namespace velmar::files {

/// Reads a region file until a head of a region cannot be read; nullopt when it has no head itself. A region that lacks
/// points is the last, with those that are there.
std::optional<base::NamedOutlines> readRegions(base::TextScanner& in);

}  // namespace velmar::files
