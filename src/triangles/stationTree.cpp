#include "triangles/stationTree.h"

#include <algorithm>
#include <cmath>

namespace velmar::triangles {

StationTree::StationTree(std::span<const float> x, std::span<const float> y) {
    for (std::uint32_t k = 1; k < x.size(); ++k)
        if (std::isfinite(x[k]) && std::isfinite(y[k])) stations_.push_back({{x[k], y[k]}, k});
    if (!stations_.empty()) build(0, static_cast<std::uint32_t>(stations_.size()));
}

/// Returns the number of the node.
std::uint32_t StationTree::build(std::uint32_t first, std::uint32_t count) {
    const auto index = static_cast<std::uint32_t>(nodes_.size());
    Extent extent;
    for (std::uint32_t k = first; k < first + count; ++k) extent.include(stations_[k].place);
    nodes_.push_back({extent, first, count, 0});
    if (count <= leafSize) return index;

    const bool isWide = extent.highest.x - extent.lowest.x > extent.highest.y - extent.lowest.y;
    const std::uint32_t half = count / 2;
    const auto begin = stations_.begin() + first;
    std::nth_element(begin, begin + half, begin + count, [isWide](const Station& a, const Station& b) {
        return isWide ? a.place.x < b.place.x : a.place.y < b.place.y;
    });
    build(first, half);
    const std::uint32_t second = build(first + half, count - half);
    nodes_[index].second = second;
    return index;
}

}  // namespace velmar::triangles
