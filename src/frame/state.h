#pragma once

namespace velmar::frame {

/// What grid files leave behind for later calls. Lives as long as the process.
struct FrameState {
    /// Bold-line value of the last grid file whose header could be read; every contour result carries it.
    float lastBoldValue = 0.0F;
};

FrameState& state();

}  // namespace velmar::frame
