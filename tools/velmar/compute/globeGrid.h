#pragma once

#include "grid/grid.h"
#include "read/gridFile.h"

namespace velmar::tool {

/// A grid as it lies on the globe. One that goes all the way round has its first column once more as its last.
struct GlobeGrid {
    grid::Grid values;  ///< of the grid, where it is not a view of somebody else's
    grid::GridView grid;
    grid::Lattice lattice;  ///< its ends are those of the columns and rows

    bool circlesGlobe() const;
};

/// The grid of a file, which must stay where it is. A Problem when its place is no place.
GlobeGrid onGlobe(const GridFile& file);

/// The grid that contour lines are traced on: a refined one where there are few points, else a view of the grid itself.
GlobeGrid tracedGrid(const GlobeGrid& grid);

/// The grid brought to fewer columns and rows, as far as its size allows: each point is the mean of those around it, the
/// nearest counting most, and the first and last columns and rows stay in place. A point is missing where more than half
/// of what it stands for is. Takes no more columns and rows than there are.
GlobeGrid thinned(const GlobeGrid& grid, int columns, int rows);

}  // namespace velmar::tool
