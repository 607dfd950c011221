#pragma once

#include "shade/shading.h"
#include "shade/trace.h"

namespace velmar::shade {

/// How the holes of a strip get into the polygon list.
enum class HolePlace {
    degrees,      ///< like all other polygons
    gridColumns,  ///< in grid coordinates that count from 1
};

/// Traces the levels of a grid strip by strip and appends the polygons to the list: for each strip, level by
/// level, what lies above, and then the holes, the newest first. Holes have the colour of the band below the
/// level that they belong to, but carry the last level of the list. False on failure.
[[nodiscard]] bool traceStrips(const ShadeRequest& request, const grid::GridPlace& place, HolePlace holePlace,
                               TraceBuffers& buffers, ShadePolygonList& polygons);

}  // namespace velmar::shade
