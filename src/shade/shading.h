#pragma once

#include <cstddef>
#include <span>

#include "grid/grid.h"
#include "shade/polygons.h"
#include "shade/trace.h"

namespace velmar::shade {

/// The levels of a shading, lowest first, and the colours of the bands above them: the host's own lists, or
/// the numbers 0, 1, 2, ... of classes. Too many are taken for a mistake, as for contour lines: the list is empty then.
class ShadeLevels {
public:
    static ShadeLevels listed(const float* levels, const int* colours, int count) {
        return {levels, colours, count};
    }
    static ShadeLevels classes(int count) { return {nullptr, nullptr, count}; }

    int count() const { return count_; }
    float level(int k) const { return levels_ != nullptr ? levels_[k] : static_cast<float>(k); }
    int colour(int k) const { return colours_ != nullptr ? colours_[k] : k; }

    /// The last level. The list must not be empty.
    float last() const { return level(count_ - 1); }

    /// How many levels there are up to the last one that is not certainly above a value.
    int countUpTo(float value) const;

private:
    ShadeLevels(const float* levels, const int* colours, int count)
        : levels_(levels), colours_(colours), count_(mayBeMeant(count) ? count : 0) {}

    static bool mayBeMeant(int count) {
        return count > 0 && static_cast<std::size_t>(count) <= grid::mostLevels;
    }

    const float* levels_;
    const int* colours_;
    int count_;
};

/// What is shaded: a grid, the value of its points without data, and the number of rows that are traced at a
/// time (below 1: all).
struct ShadeRequest {
    grid::GridView grid;
    float missing;
    ShadeLevels levels;
    int stripRows;
};

/// Where the columns and rows of an unevenly spaced grid lie: the position of the first, then the spacing of each
/// following one, nx + 1 and ny + 1 entries.
struct GridLineSteps {
    const float* x;
    const float* y;
};

/// The place of a grid whose columns and rows are numbered from 0.
inline constexpr grid::GridPlace numberedFromZero{0.0F, 0.0F, 1.0F, 1.0F};

/// Trace the polygons of a grid, strip by strip, into the list, which is emptied first: for each strip, level by level,
/// what lies above, and then the holes, the newest first. Holes have the colour of the band below the level that they
/// belong to, but carry the last level of the list. False when the tracing fails, which is reported on standard output;
/// the list is incomplete then.
bool shadeGrid(const ShadeRequest& request, const grid::GridPlace& place, ShadeBuffers& buffers,
               ShadePolygons& polygons);
bool shadeUnevenGrid(const ShadeRequest& request, const GridLineSteps& steps, ShadeBuffers& buffers,
                     ShadePolygons& polygons);

}  // namespace velmar::shade
