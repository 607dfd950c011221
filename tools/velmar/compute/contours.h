#pragma once

#include <vector>

#include "compute/globeGrid.h"
#include "grid/refine.h"
#include "read/geoPoints.h"

namespace velmar::tool {

/// A contour line: a view into the coordinates of its set.
struct Isoline : GeoPoints {
    float value;

    bool closed() const;
};

/// The contour lines of a grid, and the grid.
struct ContourSet : GlobeGrid {
    base::Floats coordinates;   ///< of the lines
    std::vector<float> levels;  ///< those asked for: not all need have lines
    std::vector<Isoline> lines;
    grid::RefinementFactors refinement;  ///< by which the lines' grid is finer than this one

    grid::Lattice tracedLattice() const;
};

/// The lines of a grid at the levels.
ContourSet drawContours(GlobeGrid grid, const std::vector<float>& levels);

}  // namespace velmar::tool
