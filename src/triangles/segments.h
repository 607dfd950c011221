#pragma once

#include <span>
#include <vector>

#include "grid/grid.h"
#include "triangles/triangulation.h"

namespace velmar::triangles {

/// A piece of a contour line, across one triangle.
struct Segment {
    grid::Point first;
    grid::Point second;
};

/// A triangle and the smallest and largest value of its vertices.
struct RangedTriangle {
    Triangle vertices;
    float smallest;
    float largest;
};

std::vector<RangedTriangle> withRanges(std::span<const Triangle> triangles, std::span<const float> values);

/// The pieces of a level, in the order of the triangles. A vertex at the very level cuts no edge.
void cutTriangles(const StationsView& stations, std::span<const RangedTriangle> triangles, float level,
                  std::vector<Segment>& segments);

}  // namespace velmar::triangles
