#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/elementary.h"
#include "grid/grid.h"

/// Distances in degrees. Those between stations and points are in single precision throughout.
namespace velmar::analysis {

/// So many columns or rows from the first on.
struct LineRange {
    std::size_t first;
    std::size_t count;

    std::size_t end() const { return first + count; }
};

/// The columns, or rows, of a block that may lie within a distance of a place, and a few more, counted from the
/// block's first one: work on a station keeps to these. The lines of the grid stand at start + i * step. The slack is
/// wider than the roundings of single precision.
inline LineRange linesWithin(double start, double step, LineRange block, double place, double distance) {
    const double reach = std::fmax(distance, 0.0);
    const double slack = 1e-5 * (std::fabs(start) + std::fabs(place) + reach) + std::fabs(step);
    const double one = (place - reach - slack - start) / step;
    const double other = (place + reach + slack - start) / step;
    if (std::isnan(one) || std::isnan(other)) return {0, block.count};
    const auto end = static_cast<double>(block.end());
    const double first = std::clamp(std::min(one, other), static_cast<double>(block.first), end);
    const double last = std::clamp(std::max(one, other) + 1.0, first, end);
    return {static_cast<std::size_t>(first) - block.first,
            static_cast<std::size_t>(last) - static_cast<std::size_t>(first)};
}

/// The distance whose components are these.
inline float length(float dx, float dy) { return std::sqrt(dx * dx + dy * dy); }

inline float rowLatitude(const grid::GridPlace& place, int j) {
    return place.startLatitude + static_cast<float>(j) * place.latitudeStep;
}

/// A station seen from a grid row on an earth that is flat nearby: a difference of longitudes counts as much
/// less than one of latitudes as parallels are shorter than meridians at the mean latitude.
struct StationFromRow {
    float longitude;
    float cosine;
    float dy;

    StationFromRow(float rowLatitude, float stationLongitude, float stationLatitude)
        : longitude(stationLongitude),
          cosine(cosineOf(rowLatitude, stationLatitude)),
          dy(rowLatitude - stationLatitude) {}

    /// The distance of a point of the row, and its square.
    float distanceOf(float pointLongitude) const { return std::sqrt(squareOf(pointLongitude)); }
    float squareOf(float pointLongitude) const {
        const float dx = (pointLongitude - longitude) * cosine;
        return dx * dx + dy * dy;
    }

    /// The columns of a block that may lie within a distance, counted from the block's first one.
    LineRange columnsWithin(float distance, const grid::GridPlace& place, LineRange block) const {
        return linesWithin(place.startLongitude, place.longitudeStep, block, longitude,
                           distance / std::fabs(cosine));
    }

private:
    static float cosineOf(float latitude, float otherLatitude) {
        constexpr float degreesPerRadianTwice = 114.59156F;
        return static_cast<float>(
            base::cosine(static_cast<double>((latitude + otherLatitude) / degreesPerRadianTwice)));
    }
};

/// Whether a station this far north or south of a row can be nearer than a radius to any of its points, or at
/// the very place of one.
inline bool mayReachRow(float dy, float radius) { return std::fabs(dy) < radius || dy * dy == 0.0F; }

}  // namespace velmar::analysis
