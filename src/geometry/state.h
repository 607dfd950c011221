#pragma once

#include "geometry/stationLevels.h"

namespace velmar::geometry {

/// What SanJiao leaves behind for later calls. Lives as long as the process.
struct GeometryState {
    LevelTable levels;
};

GeometryState& state();

}  // namespace velmar::geometry
