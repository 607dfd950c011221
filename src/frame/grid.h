#pragma once

#include <cstddef>

namespace velmar::frame {

/// Grid points without data carry this value in the files of the diamond family.
inline constexpr float missingInFiles = 9999.0F;

/// Number of values of an nx by ny grid; a grid whose nx or ny is not positive holds none.
constexpr std::size_t valueCount(int nx, int ny) {
    return nx > 0 && ny > 0 ? static_cast<std::size_t>(nx) * static_cast<std::size_t>(ny) : 0;
}

/// A grid somebody else owns: element (column i, row j) is values[j * nx + i].
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

/// Where a grid lies: its first column and row, its last ones and the steps between, in degrees.
struct Lattice {
    float startLongitude;
    float endLongitude;
    float longitudeStep;
    float startLatitude;
    float endLatitude;
    float latitudeStep;
};

}  // namespace velmar::frame
