#include "formats/state.h"

namespace velmar::formats {

FormatsState& state() {
    static FormatsState instance;
    return instance;
}

}  // namespace velmar::formats
