#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "base/keptMemory.h"

namespace velmar::base {

/// A place, in degrees.
struct LonLat {
    float longitude;
    float latitude;

    bool operator==(const LonLat&) const = default;
};

/// An area between two meridians and two parallels, in degrees. At first it is empty: it lies nowhere, and takes the
/// bounds of what it is made to include.
struct LonLatBox {
    float west = 999.0F;
    float east = -999.0F;
    float south = 999.0F;
    float north = -999.0F;

    void includeLongitude(float longitude) {
        if (longitude > east) east = longitude;
        if (longitude < west) west = longitude;
    }
    void includeLatitude(float latitude) {
        if (latitude > north) north = latitude;
        if (latitude < south) south = latitude;
    }
    bool contains(LonLat place) const {
        return west <= place.longitude && place.longitude <= east && south <= place.latitude &&
               place.latitude <= north;
    }
};

/// So many points of an array, from the first on.
struct PointRun {
    std::size_t firstPoint;
    std::size_t pointCount;
};

/// Lines or outlines, their points in one array.
///
///   Run  a PointRun with what else there is to say of a line
template <class Run, class Point>
struct PointRuns {
    std::vector<Run> runs;
    std::vector<Point> points;

    std::span<const Point> pointsOf(const PointRun& run) const {
        return std::span(points).subspan(run.firstPoint, run.pointCount);
    }

    /// Adds those of another list behind these.
    void append(const PointRuns& other) {
        for (Run run : other.runs) {
            run.firstPoint += points.size();
            runs.push_back(run);
        }
        points.insert(points.end(), other.points.begin(), other.points.end());
    }

    /// Keeps the memory for the next call.
    void clear() {
        runs.clear();
        points.clear();
    }

    /// Size of the memory in use.
    std::size_t bytes() const { return bytesOf(runs) + bytesOf(points); }
};

}  // namespace velmar::base
