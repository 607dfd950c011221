#pragma once

#include <span>
#include <vector>

#include "base/points.h"
#include "contour/crossings.h"

namespace velmar::contour {

/// A traced line. A ring repeats its first point at its end.
struct ContourLine : base::PointRun {
    float level;
};

/// Lines in the order in which they were traced, with positions on the traced grid.
using ContourLines = base::PointRuns<ContourLine, grid::GridPoint>;

/// What the tracing of a level works in.
struct LevelBuffers {
    Crossings crossings;
    std::vector<grid::GridPoint> forward;
    std::vector<grid::GridPoint> backward;

    /// Size of the memory in use.
    std::size_t bytes() const {
        return crossings.alongRow.bytes() + crossings.alongColumn.bytes() + base::bytesOf(forward) +
               base::bytesOf(backward);
    }
};

/// Buffers of the tracing, reused from call to call.
///
/// The length of lines is limited as if a line were written from the middle of a work buffer towards both its
/// ends: the buffer has a float per point of the largest grid so far, border included, and a very long line is
/// cut where it would reach an end. Only the size of that buffer is kept.
struct ContourBuffers {
    grid::LevelIndex index;
    LevelBuffers work;
    std::size_t workBufferFloats = 0;

    /// Size of the memory in use.
    std::size_t bytes() const { return index.bytes() + work.bytes(); }
};

/// Traces the levels in their order through a grid and appends their lines to the list.
///
/// The grid points are classified as above a level or not. A line passes each grid edge between a point above
/// and one not above, at the linear interpolation between them, and leaves a cell through the one other such
/// edge. Where all four edges of a cell are crossed, the two connecting segments that are shorter in total
/// are taken.
///
/// Lines start at the edges in the order of their lower point, row by row; at one point the edge along the
/// row comes first. Edges on the last row and on the last column start no line. From its start a line is
/// followed upward or to the right, then downward or to the left; its points are stored from the end of the
/// second walk through the start to the end of the first.
void traceLevels(const grid::GridView& grid, float missing, std::span<const float> levels,
                 ContourBuffers& buffers, ContourLines& lines);

}  // namespace velmar::contour
