#pragma once

#include "read/soundingFile.h"

namespace velmar::tool {

/// Indices of a sounding; those whose levels are not there are not set.
struct SoundingIndices {
    std::optional<double> k;                  ///< George (1960), degrees C
    std::optional<double> totalTotals;        ///< Miller (1967), degrees C
    std::optional<double> showalter;          ///< Showalter (1953), degrees C
    std::optional<double> lifted;             ///< Galway (1956), of air from the lowest level, degrees C
    std::optional<double> precipitableWater;  ///< mm
};

/// Computes the indices of levels that are ordered by falling pressure.
///
/// The library has a K index and total totals of its own, kept for its old hosts: they take standard levels only
/// from below the freezing level, and others from the sounding before. So these here are computed from the
/// levels of the one sounding, wherever it freezes.
SoundingIndices indicesOf(const std::vector<CheckedLevel>& levels);

}  // namespace velmar::tool
