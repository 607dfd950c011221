#pragma once

#include "shade/trace.h"

namespace velmar::shade {

/// Traces everything that one level has in a strip: first the outlines that cross a side, then those that
/// run along boundaries throughout. Starts are taken row by row; at a point the side along the row comes
/// first. The points above the level must be marked and no side walked yet. False on failure.
///
///   hasFailed  set when a polygon could not be traced, be that a failure of the whole or not
[[nodiscard]] bool traceFromStarts(const Strip& strip, int nx, const StripBuffers& buffers,
                                   RegionTracer& tracer, bool& hasFailed);

}  // namespace velmar::shade
