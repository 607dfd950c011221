#include "geometry/state.h"

namespace velmar::geometry {

GeometryState& state() {
    static GeometryState instance;
    return instance;
}

}  // namespace velmar::geometry
