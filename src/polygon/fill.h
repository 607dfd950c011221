#pragma once

#include "polygon/polygonView.h"

namespace velmar::polygon {

/// Pulls a polygon into a rectangle so that it can be filled there as it is: vertices inside are kept,
/// those outside are moved to the nearest place of the rectangle's rim, and where the outline passes the rim,
/// in the order of the points and without the segment from the last to the first, the crossing is inserted.
///
/// Writes the outline, pairs x, y, and returns its end. A vertex adds at most one crossing, and the first adds none, so
/// that a polygon of n vertices, at least one, gives fewer than 2 n points.
float* keepInside(const PolygonView& polygon, const Rectangle& rectangle, float* outline);

}  // namespace velmar::polygon
