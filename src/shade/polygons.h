#pragma once

#include <optional>
#include <span>

#include "base/points.h"
#include "grid/grid.h"

namespace velmar::shade {

/// A finished polygon; its last point equals its first.
struct ShadePolygon : base::PointRun {
    float level;
    int colour;
};

/// Polygons in the order in which they are to be painted, in the host's coordinates.
using ShadePolygons = base::PointRuns<ShadePolygon, base::LonLat>;

/// Adds a polygon and prints its points; one of fewer than three points is ignored. The colour is brought into 0 to 99.
///
///   place  turns positions on the grid into the host's coordinates; without one they are these
void appendShadePolygon(ShadePolygons& polygons, std::span<const grid::GridPoint> outline,
                        const std::optional<grid::GridPlace>& place, float level, int colour);

/// Prints the points of polygons that have been added silently.
void printPolygons(const ShadePolygons& polygons);

/// A polygon around low ground, kept until its strip is done.
struct Hole : base::PointRun {
    int colourBelow;
};

/// Holes in the order in which they were found.
using HoleStack = base::PointRuns<Hole, grid::GridPoint>;

/// A strip with as many holes fails.
inline constexpr std::size_t mostHoles = 50000;

}  // namespace velmar::shade
