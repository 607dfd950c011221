#pragma once

#include <span>

#include "base/points.h"

namespace velmar::tool {

/// A row of points: a view into coordinates that somebody else owns.
struct GeoPoints {
    std::span<const float> coordinates;  ///< longitude and latitude in turn

    std::size_t size() const { return coordinates.size() / 2; }
    base::LonLat operator[](std::size_t k) const { return {coordinates[2 * k], coordinates[2 * k + 1]}; }
};

}  // namespace velmar::tool
