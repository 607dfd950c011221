#pragma once

#include <cstddef>
#include <span>

#include "contour/levels.h"
#include "frame/block.h"
#include "frame/grid.h"

namespace velmar::shade {

/// The levels of a shading, lowest first, and the colours of the bands above them: the host's own lists, or
/// the numbers 0, 1, 2, ... of classes. Too many count as none, as they do for contour lines.
class ShadeLevels {
public:
    static ShadeLevels listed(const float* levels, const int* colours, int count) {
        return {levels, colours, count};
    }
    static ShadeLevels classes(int count) { return {nullptr, nullptr, count}; }

    int count() const { return count_; }
    float level(int k) const { return levels_ != nullptr ? levels_[k] : static_cast<float>(k); }
    int colour(int k) const { return colours_ != nullptr ? colours_[k] : k; }

    /// The level that stands last; there is one.
    float last() const { return level(count_ - 1); }

    /// How many levels there are up to the last one that may not be above a value.
    int countUpTo(float value) const;

private:
    ShadeLevels(const float* levels, const int* colours, int count)
        : levels_(levels), colours_(colours), count_(mayBeMeant(count) ? count : 0) {}

    static bool mayBeMeant(int count) {
        return count > 0 && static_cast<std::size_t>(count) <= contour::mostLevels;
    }

    const float* levels_;
    const int* colours_;
    int count_;
};

/// What is shaded: a grid, the value of its points without data, and the number of rows that are traced at a
/// time (below 1: all).
struct ShadeRequest {
    frame::GridView grid;
    float undefValue;
    ShadeLevels levels;
    int stripRows;
};

/// Shades an evenly spaced grid. Null when there is no polygon or the tracing fails.
frame::ResultBlock shade(const ShadeRequest& request, const frame::GridPlace& place);

/// Shades a grid whose columns and rows lie where the tables say: the position of the first line, then the
/// spacing of each following one, nx + 1 and ny + 1 entries.
frame::ResultBlock shadeUneven(const ShadeRequest& request, const float* xSteps, const float* ySteps);

}  // namespace velmar::shade
