#pragma once

#include "shade/polygons.h"
#include "shade/trace.h"

namespace velmar::shade {

/// What the shading exports keep between calls. Lives as long as the process.
struct ShadeState {
    /// Filled and emptied within one call.
    ShadePolygonList polygons;

    TraceBuffers buffers;

    /// Of the memory that calls work in.
    std::size_t bytes() const { return polygons.bytes() + buffers.bytes(); }

    void release() { *this = {}; }
};

ShadeState& state();

}  // namespace velmar::shade
