#pragma once

#include "shade/polygons.h"

namespace velmar::shade {

/// What the shading exports keep between calls. Lives as long as the process.
struct ShadeState {
    /// Filled and emptied within one call.
    ShadePolygonList polygons;
};

ShadeState& state();

}  // namespace velmar::shade
