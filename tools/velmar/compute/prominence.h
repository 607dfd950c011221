#pragma once

#include <vector>

#include "grid/grid.h"

namespace velmar::tool {

/// How far the highs of a grid stand out, as with mountains: the difference between a summit and the highest
/// pass that leads from it to higher ground; for the highest of all, to the lowest value. Gives a number per
/// grid point, 0 for points that are no summit. Values that are missing belong to no mountain.
///
///   sign          1 for highs, -1 for lows
///   circlesGlobe  whether the last column is the first one repeated, so that ways lead across the seam
std::vector<float> prominences(const grid::GridView& grid, float sign, bool circlesGlobe);

}  // namespace velmar::tool
