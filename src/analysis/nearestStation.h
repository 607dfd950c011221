#pragma once

#include <cstddef>
#include <functional>
#include <span>

#include "analysis/area.h"
#include "analysis/stations.h"
#include "grid/grid.h"

namespace velmar::analysis {

/// Which stations are looked at from a point.
enum class Reach {
    distance,        ///< all that are near enough
    distanceAndBox,  ///< of those the ones less than twice the radius away in longitude and in latitude
};

/// Takes the nearest stations of points side by side, -1 where there is none. The first point is this one of the
/// grid, counted row after row. It is called by several threads, each with other points.
using TakeNearest = std::function<void(std::size_t firstPoint, std::span<const int> stations)>;

/// Hands out the nearest station of each grid point less than a radius (degrees) away. Of several at the same
/// distance it is the first of the list.
void findNearestStations(const grid::GridPlace& place, const GridSize& size, const StationView& stations,
                         float radius, Reach reach, const TakeNearest& take);

}  // namespace velmar::analysis
