#pragma once

#include <vector>

#include "polygon/polygonView.h"

namespace velmar::polygon {

/// A directed edge along one of the axes. Its inside is the half plane on its left, its own line included. An
/// edge whose ends are equal, or not numbers, has no inside.
struct ClipEdge {
    grid::Point from;
    grid::Point to;
};

/// Clips a polygon by one edge and returns pairs x, y: a stage of the method of Sutherland and Hodgman
/// (Reentrant polygon clipping, Communications of the ACM 17, 1974). Points inside are kept in their order; a
/// side of the polygon that passes the edge's line leaves its crossing. A run of points outside becomes the
/// two crossings at its ends: n points become at most n + n / 2.
std::vector<float> clipByEdge(const PolygonView& polygon, const ClipEdge& edge);

/// Clips a polygon by the bottom, right, top and left side of a rectangle in this order. A rectangle without
/// width or height leaves nothing.
std::vector<float> clipByRectangle(const PolygonView& polygon, const Rectangle& rectangle);

}  // namespace velmar::polygon
