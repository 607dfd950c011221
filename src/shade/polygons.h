#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "base/keptMemory.h"
#include "grid/grid.h"

namespace velmar::shade {

using grid::Point;

/// A finished polygon: `pointCount` points from `firstPoint` on, the last one equal to the first.
struct ShadePolygon {
    float level;
    int colour;
    std::size_t firstPoint;
    std::size_t pointCount;
};

/// Polygons in the order in which they are to be painted, their points in one array.
struct ShadePolygonList {
    std::vector<ShadePolygon> polygons;
    std::vector<Point> points;

    std::span<const Point> pointsOf(const ShadePolygon& polygon) const {
        return {points.data() + polygon.firstPoint, polygon.pointCount};
    }

    /// Size of the memory in use.
    std::size_t bytes() const { return base::bytesOf(polygons) + base::bytesOf(points); }
};

/// Empties the list. Memory is kept for the next call.
void freeShadePolygons(ShadePolygonList& list);

/// Adds a polygon in the host's coordinates; one of fewer than three points is ignored. The colour is brought
/// into 0 to 99.
void appendShadePolygon(ShadePolygonList& list, std::span<const Point> points, float level, int colour);

}  // namespace velmar::shade
