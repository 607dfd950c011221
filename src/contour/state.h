#pragma once

#include "contour/lines.h"
#include "contour/refine.h"
#include "contour/trace.h"
#include "frame/block.h"

namespace velmar::contour {

/// What the contour exports keep between calls. Lives as long as the process.
struct ContourState {
    /// Filled and emptied within one call.
    LineList lines;

    /// Factors of the last contour2D call. contour2DRaw divides its positions by them too.
    RefinementFactors factors;

    /// Of these only the size of the work buffer outlives a call.
    TraceBuffers buffers;

    /// Centres of the last grid file that was contoured with automatic levels.
    frame::ResultBlock lastCenters;
};

ContourState& state();

/// Releases the lines, their memory too.
void freeContourLines();

}  // namespace velmar::contour
