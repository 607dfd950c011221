#pragma once

#include "shade/polygonTools.h"

namespace velmar::shade {

/// Pulls a polygon into a rectangle so that it can be filled there as it stands: vertices inside are kept,
/// those outside are moved to the nearest place of the rectangle's rim, and where the outline passes the rim,
/// in the order of the points and without the way from the last to the first, the crossing is put in between.
///
/// The outline goes to the area of the module when the polygon has fewer than 10 points, otherwise to a block
/// of 4 n floats that becomes the caller's. Marks in a diagnostic file tell how far the call has come.
///
/// Returns the end of the outline, and its number of points in `count`. When there are fewer than 3 points or
/// no memory it returns `points`, and null when the diagnostic file cannot be opened; `count` is 0 then.
float* fillPolygon(float* points, int n, const Rectangle& rectangle, PolygonToolsState& state, int& count);

}  // namespace velmar::shade
