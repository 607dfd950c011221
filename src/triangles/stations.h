#pragma once

#include <cstddef>
#include <span>

namespace velmar::triangles {

/// Stations on a plane map: longitudes, latitudes and values in the same order.
struct StationsView {
    std::span<const float> x;
    std::span<const float> y;
    std::span<const float> values;

    std::size_t count() const { return x.size(); }
};

}  // namespace velmar::triangles
