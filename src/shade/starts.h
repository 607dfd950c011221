#pragma once

#include "shade/trace.h"

namespace velmar::shade {

/// Traces everything that one level has in a strip: first the outlines that cross a side, then those that
/// run along boundaries throughout. Starts are taken row by row; at a point the side along the row comes
/// first. The points above the level must be marked and no side walked yet. False on failure.
[[nodiscard]] bool traceFromStarts(const Strip& strip, ShadeBuffers& buffers, RegionTracer& tracer);

}  // namespace velmar::shade
