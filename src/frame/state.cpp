#include "frame/state.h"

namespace velmar::frame {

FrameState& state() {
    static FrameState instance;
    return instance;
}

}  // namespace velmar::frame
