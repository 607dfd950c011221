#include "wind/state.h"

namespace velmar::wind {

WindState& state() {
    static WindState instance;
    return instance;
}

}  // namespace velmar::wind
