#pragma once

#include <cmath>

#include "analysis/area.h"
#include "analysis/reach.h"
#include "base/elementary.h"
#include "grid/grid.h"

/// Distances in degrees, in single precision throughout.
namespace velmar::analysis {

/// The distance whose components are these.
inline float length(float dx, float dy) { return std::sqrt(dx * dx + dy * dy); }

inline float rowLatitude(const grid::GridPlace& place, int j) {
    return place.y0 + static_cast<float>(j) * place.dy;
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
        return linesWithin(place.x0, place.dx, block, longitude, distance / std::fabs(cosine));
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
