#pragma once

#include <optional>
#include <string>

#include "chart/paper/paper.h"
#include "read/soundingFile.h"

namespace velmar::tool {

/// Draws soundings as skew-T log-p diagrams, a page each, with wind barbs, freezing level and indices. Returns
/// them as a file of the format; png and svg take one sounding.
std::string drawSoundings(const CheckedSoundings& file, const std::optional<PaperSize>& size,
                          const std::string& format);

}  // namespace velmar::tool
