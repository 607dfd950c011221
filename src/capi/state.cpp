#include "capi/state.h"

namespace velmar::capi {

State& state() {
    static State instance;
    return instance;
}

}  // namespace velmar::capi
