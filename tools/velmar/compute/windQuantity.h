#pragma once

#include <string_view>

#include "read/windFile.h"

namespace velmar::tool {

/// What can be computed from a wind field.
enum class WindQuantity { speed, divergence, vorticity };

/// "speed", "divergence", "vorticity"
std::string_view quantityName(WindQuantity quantity);

/// A quantity as a grid file of the same place and time, with levels in its header that suit it: wind speed in
/// m/s, divergence and relative vorticity in 1/s, times the scale. Points where it cannot be computed are
/// missing; in a field that circles the globe those on both sides of the seam are computed.
GridFile windQuantity(const WindGrid& file, WindQuantity quantity, float scale = 1);

}  // namespace velmar::tool
