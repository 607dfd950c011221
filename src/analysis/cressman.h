#pragma once

#include <span>

#include "analysis/area.h"
#include "analysis/stations.h"
#include "base/floats.h"

namespace velmar::analysis {

/// Spreads station values onto a grid by successive corrections within shrinking radii (after Cressman 1959).
/// Null when the grid has no points or the values of the used stations add up to -9999. With a mask radius
/// above 0 (degrees) the field is capped and masked at the end.
///
///   radii  influence radius of each scan, in grid lengths
base::Floats analyseCressman(std::span<const float> radii, const GridSize& size,
                             const base::LonLatBox& bounds, const StationView& stations, float maskRadius);

}  // namespace velmar::analysis
