#pragma once

#include <cstdint>
#include <vector>

#include "grid/bitPlane.h"
#include "grid/levelIndex.h"

namespace velmar::contour {

/// The grid edges that one level crosses: between a point that is above the level and one that is at it or
/// below, both with data.
struct Crossings {
    /// Bit (i, j): the edge from point (i, j) to (i + 1, j).
    grid::BitPlane alongRow;
    /// Bit (i, j): the edge from point (i, j) to (i, j + 1). It has a row less than the grid.
    grid::BitPlane alongColumn;

    void mark(const grid::LevelIndex& index, float level);

private:
    std::vector<grid::Word> above_;
    std::vector<grid::Word> aboveNext_;
};

}  // namespace velmar::contour
