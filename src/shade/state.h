#pragma once

#include "shade/polygons.h"
#include "shade/trace.h"

namespace velmar::shade {

/// What the shading exports keep between calls. Lives as long as the process.
struct ShadeState {
    /// Filled and emptied within one call. What a failed call leaves behind goes at the start of the next.
    ShadePolygonList polygons;

    TraceBuffers buffers;
};

ShadeState& state();

}  // namespace velmar::shade
