#pragma once

#include <cstddef>
#include <vector>

namespace velmar::polygon {

/// A corner of a polygon, in the host's coordinates.
struct Vertex {
    float x;
    float y;
};

/// A view of a polygon: pairs x, y. The last point joins the first.
struct PolygonView {
    const float* coordinates;
    std::size_t count;

    Vertex at(std::size_t k) const { return {coordinates[2 * k], coordinates[2 * k + 1]}; }
};

/// A rectangle with sides along the axes. The sides belong to it.
struct Rectangle {
    float xlo;
    float ylo;
    float xhi;
    float yhi;
};

/// A directed edge along one of the axes. Its inside is the half plane on its left, its own line included. An
/// edge whose ends are equal, or not numbers, has no inside.
struct ClipEdge {
    Vertex from;
    Vertex to;
};

/// Clips a polygon by one edge and returns pairs x, y: a stage of the method of Sutherland and Hodgman
/// (Reentrant polygon clipping, Communications of the ACM 17, 1974). Points inside are kept in their order; a
/// side of the polygon that passes the edge's line leaves its crossing. A run of points outside becomes the
/// two crossings at its ends: n points become at most n + n / 2.
std::vector<float> clipByEdge(const PolygonView& polygon, const ClipEdge& edge);

/// Clips a polygon by the bottom, right, top and left side of a rectangle in this order. A rectangle without
/// width or height leaves nothing.
std::vector<float> clipByRectangle(const PolygonView& polygon, const Rectangle& rectangle);

/// Pulls a polygon into a rectangle so that it can be filled there as it is: vertices inside are kept,
/// those outside are moved to the nearest place of the rectangle's rim, and where the outline passes the rim,
/// in the order of the points and without the segment from the last to the first, the crossing is inserted.
///
/// Writes the outline, pairs x, y, and returns its end. A vertex adds at most one crossing, and the first adds none, so
/// that a polygon of n vertices, at least one, gives fewer than 2 n points.
float* keepInside(const PolygonView& polygon, const Rectangle& rectangle, float* outline);

}  // namespace velmar::polygon
