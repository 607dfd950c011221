#pragma once

#include "read/soundingFile.h"

namespace velmar::tool {

/// Computes the indices of levels that are ordered by falling pressure.
///
/// The library has a K index and total totals of its own, kept for its old hosts: they take standard levels only
/// from below the freezing level, and others from the sounding before. So these here are computed from the
/// levels of the one sounding, wherever it freezes.
SoundingIndices indicesOf(const std::vector<SoundingLevel>& levels);

}  // namespace velmar::tool
