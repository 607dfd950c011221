#pragma once

#include <cstddef>
#include <vector>

namespace velmar::base {

/// Outlines with names, their names and points in one array each.
struct NamedOutlines {
    struct Outline {
        std::size_t name;        ///< where the name begins among the names
        std::size_t firstPoint;  ///< where its points begin among the coordinates, counted in points
        std::size_t points;
        bool isWhole;  ///< all the points that it should have are there
    };

    std::vector<Outline> outlines;
    std::vector<char> names;         ///< each with a zero at its end
    std::vector<float> coordinates;  ///< longitude and latitude in turn, degrees
};

}  // namespace velmar::base
