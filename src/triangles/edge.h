#pragma once

#include "triangles/stationTree.h"

namespace velmar::triangles {

/// The line of an edge, as latitude = slope * longitude + offset. An edge from south to north counts as one that
/// leans by a millionth of a degree.
struct EdgeLine {
    double slope;
    double offset;

    EdgeLine(Place a, Place b);

    /// How far north of the line a place is.
    double northOf(Place p) const { return p.y - slope * p.x - offset; }
};

enum class Side { south, on, north };

/// A place less than a hundredth of a degree north or south of a line counts as on it.
Side sideOf(const EdgeLine& line, Place p);

/// Whether a place in the extent can be on a side other than this one, and not on the line. Rounding is allowed
/// for.
bool reachesBeyond(const Extent& extent, const EdgeLine& line, Side side);

/// 1 minus the cosine of the angle under which a place sees the edge from a to b; nothing is seen from too near
/// to its ends, which gives -1.
double viewOf(Place a, Place b, Place from);

/// No place farther from the middle of an edge than this has as large a view of it, rounding allowed for: square of
/// the distance.
double squaredReach(Place a, Place b, double view);

}  // namespace velmar::triangles
