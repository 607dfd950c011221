#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "frame/block.h"
#include "frame/grid.h"

namespace velmar::shade {

using frame::Point;

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
};

/// Empties the list and gives its memory back.
void freeShadePolygons(ShadePolygonList& list);

/// Adds a polygon in the host's coordinates; one of fewer than three points is ignored. The colour is brought
/// into 0 to 99.
void appendShadePolygon(ShadePolygonList& list, std::span<const Point> points, float level, int colour);

/// Packs the polygons and their grid into the result of the shading exports. Null without polygons.
frame::ResultBlock buildShadeResult(const ShadePolygonList& list, const frame::GridView& grid,
                                    const frame::GridPlace& place);

}  // namespace velmar::shade
