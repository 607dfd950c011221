#pragma once

#include "frame/grid.h"

namespace velmar::contour {

/// Into how many parts each grid interval is divided, at least 1.
struct RefinementFactors {
    int x = 1;  ///< along rows
    int y = 1;  ///< along columns
};

/// Factors that bring a grid to about 200 columns and 50 rows.
RefinementFactors chooseFactors(int nx, int ny);

/// Refines a grid to (nx - 1) * factors.x + 1 columns and (ny - 1) * factors.y + 1 rows by piecewise cubic
/// Hermite interpolation, rows first, then columns. Grid points keep their values. The slope at a point is
/// half the difference of its two neighbours, or the difference across the interval itself where one of them
/// is missing or beyond the edge. An interval with a missing end is missing inside.
frame::Grid refine(const frame::GridView& grid, float missing, const RefinementFactors& factors);

}  // namespace velmar::contour
