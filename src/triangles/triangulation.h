#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "triangles/stations.h"

namespace velmar::triangles {

/// Numbers of three stations.
using Triangle = std::array<std::uint32_t, 3>;

/// Covers stations with triangles grown from one: station 0, its nearest neighbour, and the station nearest to
/// the middle between them that is more than 2 degrees off their line. An open edge is extended to the station
/// beyond it that sees it under the largest angle, which makes the triangles those of Delaunay (1934) where the
/// tolerances of the rules play no part. Station 0 is in the first triangle only. Triangles are in the order in
/// which they have grown; the list is empty when there is no first one.
std::vector<Triangle> growNetwork(const StationsView& stations);

}  // namespace velmar::triangles
