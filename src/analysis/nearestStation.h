#pragma once

#include <vector>

#include "analysis/area.h"
#include "analysis/stations.h"
#include "grid/grid.h"

namespace velmar::analysis {

/// Which stations are looked at from a point.
enum class Reach {
    distance,        ///< all that are near enough
    distanceAndBox,  ///< of those the ones less than twice the radius away in longitude and in latitude
};

/// The nearest station of each grid point less than a radius (degrees) away, row after row; -1 where there is
/// none. Of several at the same distance it is the first of the list.
std::vector<int> nearestStations(const grid::GridPlace& place, const GridSize& size,
                                 const StationView& stations, float radius, Reach reach);

}  // namespace velmar::analysis
