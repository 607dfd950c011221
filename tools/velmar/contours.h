#pragma once

#include <span>
#include <string>
#include <vector>

#include "gridFile.h"
#include "levels.h"

namespace velmar::tool {

struct GeoPoint {
    float longitude;
    float latitude;
};

/// A contour line: a view into the block of its set.
struct Isoline {
    float value;
    std::span<const float> coordinates;  ///< longitude and latitude in turn

    std::size_t size() const { return coordinates.size() / 2; }
    GeoPoint operator[](std::size_t k) const { return {coordinates[2 * k], coordinates[2 * k + 1]}; }
    bool closed() const;
};

/// The contour lines of a grid file, and the grid as it was contoured: one that circles the globe has its
/// first column once more as its last.
struct ContourSet {
    Block block;
    std::vector<Isoline> lines;
    frame::GridView grid;
    frame::Lattice lattice;

    bool circlesGlobe() const;
};

/// Has the library draw the lines of a grid file; a Problem when it cannot.
ContourSet drawContours(const std::string& path, const LevelPlan& plan);

}  // namespace velmar::tool
