#pragma once

#include <vector>

#include "grid/refine.h"
#include "read/geoPoints.h"
#include "read/gridFile.h"

namespace velmar::tool {

/// A contour line: a view into the coordinates of its set.
struct Isoline : GeoPoints {
    float value;

    bool closed() const;
};

/// The contour lines of a grid, and the grid as it was contoured: one that circles the globe has its
/// first column once more as its last.
struct ContourSet {
    base::Floats coordinates;   ///< of the lines
    base::Floats values;        ///< of the grid
    std::vector<float> levels;  ///< those asked for: not all need have lines
    std::vector<Isoline> lines;
    grid::GridView grid;
    grid::Lattice lattice;
    grid::RefinementFactors refinement;  ///< by which the lines' grid is finer than this one

    bool circlesGlobe() const;
    grid::Lattice tracedLattice() const;
};

/// The lines of a grid at the levels; a Problem when its place is no place.
ContourSet drawContours(const GridFile& file, const std::vector<float>& levels);

}  // namespace velmar::tool
