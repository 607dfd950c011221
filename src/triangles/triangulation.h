#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace velmar::triangles {

/// Stations on a plane map: longitudes, latitudes and values in the same order.
struct StationsView {
    std::span<const float> longitudes;
    std::span<const float> latitudes;
    std::span<const float> values;

    std::size_t count() const { return values.size(); }
};

/// Numbers of three stations.
using Triangle = std::array<std::uint32_t, 3>;

/// Covers stations with triangles grown from one: station 0, its nearest neighbour, and the station nearest to
/// the middle between them that is more than 2 degrees off their line. An open edge is extended to the station
/// beyond it that sees it under the largest angle, which makes the triangles those of Delaunay (1934) where the
/// tolerances of the rules play no part. Station 0 is in the first triangle only. Triangles are in the order in
/// which they have grown; the list is empty when there is no first one.
std::vector<Triangle> growTriangulation(const StationsView& stations);

}  // namespace velmar::triangles
