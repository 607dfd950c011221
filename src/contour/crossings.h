#pragma once

#include <cstdint>
#include <vector>

#include "frame/bitPlane.h"
#include "frame/levelIndex.h"

namespace velmar::contour {

/// The grid edges that one level crosses: between a point that is above the level and one that is at it or
/// below, both with data.
struct Crossings {
    /// Bit (i, j): the edge from point (i, j) to (i + 1, j).
    frame::BitPlane alongRow;
    /// Bit (i, j): the edge from point (i, j) to (i, j + 1). It has a row less than the grid.
    frame::BitPlane alongColumn;

    void mark(const frame::LevelIndex& index, float level);

private:
    std::vector<std::uint64_t> above_;
    std::vector<std::uint64_t> aboveNext_;
};

}  // namespace velmar::contour
