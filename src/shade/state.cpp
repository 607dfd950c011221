#include "shade/state.h"

namespace velmar::shade {

ShadeState& state() {
    static ShadeState instance;
    return instance;
}

}  // namespace velmar::shade
