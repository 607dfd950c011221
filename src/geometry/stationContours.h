#pragma once

#include <span>

#include "frame/block.h"
#include "geometry/stationLevels.h"
#include "geometry/stations.h"

namespace velmar::geometry {

/// Draws contour lines from station values over a network of triangles, as SanJiao describes it. Values almost on a
/// level are changed in place. Nothing when there is no line.
frame::ResultBlock contourStations(std::span<const float> x, std::span<const float> y,
                                   std::span<float> values, const LevelRequest& request, LevelTable& levels);

}  // namespace velmar::geometry
