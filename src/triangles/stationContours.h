#pragma once

#include <span>

#include "triangles/chains.h"
#include "triangles/stationLevels.h"
#include "triangles/triangulation.h"

namespace velmar::triangles {

/// Draws contour lines from station values over a triangulation, as described for SanJiao. Values almost on a level are
/// changed in place.
///
///   levels  the levels of the call before; receives those of this call
Lines contourStations(std::span<const float> x, std::span<const float> y, std::span<float> values,
                      const LevelRequest& request, LevelTable& levels);

}  // namespace velmar::triangles
