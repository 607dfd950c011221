#pragma once

#include <limits>
#include <span>
#include <vector>

#include "base/points.h"
#include "grid/grid.h"

namespace velmar::shade {

/// A corner of an outline, in columns and rows of the grid, counted from 0.
struct OutlinePoint {
    float column;
    float row;
    bool sharp;  ///< at an edge of the grid or of its data, not on a line of the level
};

/// Values above the lower bound and not above the upper one. Neither needs to be finite.
struct ValueBand {
    float lower;
    float upper = std::numeric_limits<float>::infinity();
};

/// The outlines of where the values of a grid lie in a band, each a ring whose last point joins the first. Those of areas
/// run counter-clockwise where x rises with columns and y with rows, those of holes in them the other way.
using AreaOutlines = base::PointRuns<base::PointRun, OutlinePoint>;

/// Outlines where the values of a grid lie in each of the bands, in the cells with data at all four corners: along the
/// lines of the bounds, which pass a cell as contour lines do, and along the edge of the data. Areas that touch in a
/// corner only stay apart. Bands that share a bound have its line in common and do not overlap.
///
///   missing  value of points without data, as are values that are not finite
std::vector<AreaOutlines> outlineBands(const grid::GridView& grid, float missing,
                                       std::span<const ValueBand> bands);

}  // namespace velmar::shade
