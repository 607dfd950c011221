#include "triangles/stationTree.h"

#include <algorithm>
#include <cmath>

namespace velmar::triangles {

StationTree::StationTree(std::span<const float> longitudes, std::span<const float> latitudes) {
    for (std::uint32_t k = 1; k < longitudes.size(); ++k)
        if (std::isfinite(longitudes[k]) && std::isfinite(latitudes[k]))
            stations_.push_back({{longitudes[k], latitudes[k]}, k});
    if (!stations_.empty()) build(0, static_cast<std::uint32_t>(stations_.size()));
}

/// Returns the number of the node.
std::uint32_t StationTree::build(std::uint32_t first, std::uint32_t count) {
    const auto index = static_cast<std::uint32_t>(nodes_.size());
    PlaneBox extent;
    for (std::uint32_t k = first; k < first + count; ++k) extent.include(stations_[k].place);
    nodes_.push_back({extent, first, count, 0});
    if (count <= leafSize) return index;

    const bool isWide =
        extent.highest.longitude - extent.lowest.longitude > extent.highest.latitude - extent.lowest.latitude;
    const std::uint32_t half = count / 2;
    const auto begin = stations_.begin() + first;
    std::nth_element(
        begin, begin + half, begin + count, [isWide](const TreeStation& a, const TreeStation& b) {
            return isWide ? a.place.longitude < b.place.longitude : a.place.latitude < b.place.latitude;
        });
    build(first, half);
    const std::uint32_t second = build(first + half, count - half);
    nodes_[index].second = second;
    return index;
}

}  // namespace velmar::triangles
