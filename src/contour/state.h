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

    TraceBuffers buffers;

    /// Centres of the last grid file that was contoured with automatic levels.
    frame::ResultBlock lastCenters;

    /// Of the memory that calls work in.
    std::size_t bytes() const { return lines.bytes() + buffers.bytes(); }

    /// Gives that memory back. The size of the work buffer stays: it is that of the largest grid so far.
    void release() {
        lines = {};
        buffers = {{}, {}, {}, {}, buffers.workBufferFloats};
    }
};

ContourState& state();

/// Releases the lines that a call has left behind.
void freeContourLines();

}  // namespace velmar::contour
