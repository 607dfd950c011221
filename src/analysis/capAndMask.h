#pragma once

#include "analysis/area.h"
#include "analysis/stations.h"
#include "grid/grid.h"

namespace velmar::analysis {

/// Caps a field by the largest value of the stations within a radius (degrees, inclusive) of each point, and
/// sets it to -9999 where there is none. Distances are plain ones: a degree of longitude counts as much as one
/// of latitude, and the globe has a seam.
void capAndMask(float* grid, const grid::GridPlace& place, const GridSize& size, const StationView& stations,
                float radius);

}  // namespace velmar::analysis
