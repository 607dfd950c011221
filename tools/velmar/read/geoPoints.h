#pragma once

#include <span>

namespace velmar::tool {

struct GeoPoint {
    float longitude;
    float latitude;

    bool operator==(const GeoPoint&) const = default;
};

/// A row of points: a view into coordinates that somebody else owns.
struct GeoPoints {
    std::span<const float> coordinates;  ///< longitude and latitude in turn

    std::size_t size() const { return coordinates.size() / 2; }
    GeoPoint operator[](std::size_t k) const { return {coordinates[2 * k], coordinates[2 * k + 1]}; }
};

}  // namespace velmar::tool
