#pragma once

#include "grid/grid.h"

namespace velmar::grid {

/// Into how many parts each grid interval is divided, at least 1.
struct RefinementFactors {
    int x = 1;  ///< along rows
    int y = 1;  ///< along columns
};

/// Factors that bring a grid to about 200 columns and 50 rows.
RefinementFactors chooseFactors(int nx, int ny);

/// The order in which the terms of a cubic are added up. It shows in the last bit.
enum class CubicForm {
    ascending,   ///< from the constant to the cube, as for contour lines
    descending,  ///< from the cube to the constant, as for analysed grids
};

/// The degrees of a position on a refined grid.
///
///   coarse  where the grid lies that was refined
inline base::LonLat degreesOf(GridPoint position, const GridPlace& coarse, const RefinementFactors& factors) {
    return {
        (position.column - 1.0F) * coarse.longitudeStep / static_cast<float>(factors.x) +
            coarse.startLongitude,
        (position.row - 1.0F) * coarse.latitudeStep / static_cast<float>(factors.y) + coarse.startLatitude};
}

/// Refines a grid to (nx - 1) * factors.x + 1 columns and (ny - 1) * factors.y + 1 rows by piecewise cubic
/// Hermite interpolation, rows first, then columns. Grid points keep their values. The slope at a point is
/// half the difference of its two neighbours, or the difference across the interval itself where one of them
/// is missing or beyond the edge. An interval with a missing end is missing inside.
Grid refine(const GridView& grid, float missing, const RefinementFactors& factors);

/// The same, into memory that the caller provides.
void refineInto(const GridView& grid, float missing, const RefinementFactors& factors, CubicForm form,
                float* fine);

}  // namespace velmar::grid
