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
StationLines contourStations(std::span<const float> longitudes, std::span<const float> latitudes,
                             std::span<float> values, const StationLevelRequest& request, LevelTable& levels);

}  // namespace velmar::triangles
