#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "base/points.h"

namespace velmar::grid {

/// Grid points without data carry this value in the files of the diamond family.
inline constexpr float missingInFiles = 9999.0F;

/// More levels than this, of lines or of bands, are taken for a mistake, and the list of levels is empty then.
inline constexpr std::size_t mostLevels = 1'000'000;

/// Number of values of an nx by ny grid, 0 when nx or ny is not positive. A number too large for any memory or file
/// (on a 32-bit host, for instance) is replaced by one that leaves room for what callers add to it.
constexpr std::size_t valueCount(int nx, int ny) {
    constexpr std::uint64_t most = std::numeric_limits<std::size_t>::max() / 2;
    if (nx <= 0 || ny <= 0) return 0;
    return static_cast<std::size_t>(
        std::min(static_cast<std::uint64_t>(nx) * static_cast<std::uint64_t>(ny), most));
}

/// A view of a grid: element (column i, row j) is values[j * nx + i].
struct GridView {
    const float* values;
    int nx;
    int ny;

    std::size_t size() const { return valueCount(nx, ny); }
    const float* row(int j) const {
        return values + static_cast<std::size_t>(j) * static_cast<std::size_t>(nx);
    }
    float at(int i, int j) const { return row(j)[i]; }
};

/// A grid that owns its values.
struct Grid {
    std::vector<float> values;
    int nx = 0;
    int ny = 0;

    GridView view() const { return {values.data(), nx, ny}; }
};

/// A position on a grid, counted from 1 at its first column and row.
struct GridPoint {
    float column;
    float row;

    bool operator==(const GridPoint&) const = default;
};

/// What places the points of a grid: its first column and row and the grid spacing, in degrees. It says nothing of the
/// last ones: callers that have a grid in memory know none, and those that headers state need not agree with it.
struct GridPlace {
    float startLongitude;
    float startLatitude;
    float longitudeStep;
    float latitudeStep;

    base::LonLat degrees(GridPoint position) const {
        return {(position.column - 1.0F) * longitudeStep + startLongitude,
                (position.row - 1.0F) * latitudeStep + startLatitude};
    }
};

/// Where a grid lies as headers have it: its first and last columns and rows and the grid spacing, in degrees.
struct Lattice {
    float startLongitude;
    float endLongitude;
    float longitudeStep;
    float startLatitude;
    float endLatitude;
    float latitudeStep;

    GridPlace place() const { return {startLongitude, startLatitude, longitudeStep, latitudeStep}; }
};

}  // namespace velmar::grid
