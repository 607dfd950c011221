#pragma once

#include "polygon/polygonView.h"

namespace velmar::polygon {

/// Pulls a polygon into a rectangle so that it can be filled there as it stands: vertices inside are kept,
/// those outside are moved to the nearest place of the rectangle's rim, and where the outline passes the rim,
/// in the order of the points and without the way from the last to the first, the crossing is put in between.
///
/// Writes the outline, pairs x, y, and returns its end. Of two neighbours at most one brings a crossing, none the first,
/// so that there are fewer than two points for each of the polygon, of which there is at least one.
float* keepInside(const PolygonView& polygon, const Rectangle& rectangle, float* outline);

}  // namespace velmar::polygon
