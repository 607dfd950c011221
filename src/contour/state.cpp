#include "contour/state.h"

namespace velmar::contour {

ContourState& state() {
    static ContourState instance;
    return instance;
}

void freeContourLines() { state().lines.clear(); }

}  // namespace velmar::contour
