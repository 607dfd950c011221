#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "base/keptMemory.h"
#include "grid/grid.h"

namespace velmar::contour {

/// Positions on the traced grid, counted from 1 at the first column and row.
using grid::Point;

/// One traced line: `pointCount` points from `firstPoint` on. A ring repeats its first point at its end.
struct ContourLine {
    float level;
    std::size_t firstPoint;
    std::size_t pointCount;
};

/// Lines in the order in which they were traced, their points in one array.
struct LineList {
    std::vector<ContourLine> lines;
    std::vector<Point> points;

    std::span<const Point> pointsOf(const ContourLine& line) const {
        return {points.data() + line.firstPoint, line.pointCount};
    }

    /// Adds the lines of another list behind those of this one.
    void append(const LineList& other) {
        for (ContourLine line : other.lines) {
            line.firstPoint += points.size();
            lines.push_back(line);
        }
        points.insert(points.end(), other.points.begin(), other.points.end());
    }

    /// Keeps the memory for the next call.
    void clear() {
        lines.clear();
        points.clear();
    }

    /// Size of the memory in use.
    std::size_t bytes() const { return base::bytesOf(lines) + base::bytesOf(points); }
};

}  // namespace velmar::contour
