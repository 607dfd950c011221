#pragma once

#include "analysis/area.h"
#include "analysis/stations.h"
#include "base/floats.h"

namespace velmar::analysis {

struct BarnesParameters {
    float kappa;   ///< width of the first guess's Gaussian: exp(-d^2 / (4 kappa)), square degrees
    float radius;  ///< how far a station reaches in the first guess, degrees
    float gamma;   ///< the width of pass p is kappa gamma^p
    /// Stations before this one take no part in the first guess, only in the corrections.
    std::size_t firstGuessFrom = 0;
};

/// Spreads station values onto a grid with Gaussian weights: a weighted first guess and five passes of
/// corrections, each narrower than the one before (after Barnes 1964). Prints a line a pass. Null when the
/// grid has no points. With a mask radius above 0 (degrees) the field is capped and masked at the end.
base::Floats analyseBarnes(const BarnesParameters& parameters, const GridSize& size,
                           const WholeLonLatBox& bounds, const StationView& stations, float maskRadius);

}  // namespace velmar::analysis
