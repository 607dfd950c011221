#pragma once

#include "triangles/stationTree.h"

namespace velmar::triangles {

/// The line of an edge, as latitude = slope * longitude + offset. An edge from south to north counts as one that
/// leans by a millionth of a degree.
struct EdgeLine {
    double slope;
    double offset;

    EdgeLine(PlanePoint a, PlanePoint b);

    /// How far north of the line a place is.
    double northOf(PlanePoint p) const { return p.latitude - slope * p.longitude - offset; }
};

enum class LineSide { south, on, north };

/// A place less than a hundredth of a degree north or south of a line counts as on it.
LineSide sideOf(const EdgeLine& line, PlanePoint p);

/// Whether a place in the extent can be on the other side of the line than this one, and not on the line, rounding
/// allowed for.
bool reachesBeyond(const PlaneBox& extent, const EdgeLine& line, LineSide side);

/// 1 minus the cosine of the angle under which a place sees the edge from a to b; -1 for a place too near to one of
/// its ends.
double viewOf(PlanePoint a, PlanePoint b, PlanePoint from);

/// The square of a distance from the middle of an edge: no place farther away sees the edge under as large an angle,
/// rounding allowed for.
double squaredReach(PlanePoint a, PlanePoint b, double view);

}  // namespace velmar::triangles
