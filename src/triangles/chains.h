#pragma once

#include <span>
#include <vector>

#include "base/points.h"
#include "triangles/triangulation.h"

namespace velmar::triangles {

/// A piece of a contour line, across one triangle.
struct LinePiece {
    base::LonLat first;
    base::LonLat second;
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
                  std::vector<LinePiece>& pieces);

struct StationLine : base::PointRun {
    float level;
};

using StationLines = base::PointRuns<StationLine, base::LonLat>;

/// Joins the pieces of a level to lines: open chains first, each from an endpoint that nothing matches, then what is
/// left, closed lines. Endpoints that differ by less than 0.005 degrees in longitude and in latitude match. The next
/// piece of a line is the first unused one of the list with an endpoint at the line's last point; where both its
/// endpoints are there, it is joined by its first.
void joinPieces(std::vector<LinePiece>& pieces, float level, StationLines& lines);

}  // namespace velmar::triangles
