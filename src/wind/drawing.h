#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "base/floats.h"
#include "base/points.h"

namespace velmar::wind {

/// Whether the pen is up or down on its way to a point, as encoded in results.
enum class Pen { up = 0, down = 1 };

/// Streamlines and arrows on their way to a result. Points go straight into the array of that result, as there can be
/// gigabytes of them.
struct Drawing {
    base::GrowingFloats points;  ///< after the first elements: pen, longitude, latitude, colour
    std::vector<float> arrows;   ///< 2, tail, head, colour
    int currentColour;           ///< of the last piece of line that was coloured

    /// Leaves the first elements of the points to the caller.
    Drawing(std::size_t headElements, int firstColour) : currentColour(firstColour) {
        points.claim(headElements);
    }

    void addPoint(Pen pen, base::LonLat place) {
        points.append(std::array{static_cast<float>(pen), place.longitude, place.latitude,
                                 static_cast<float>(currentColour)});
    }
    void addArrow(base::LonLat tail, base::LonLat head) {
        constexpr float tag = 2.0F;
        arrows.insert(arrows.end(), {tag, tail.longitude, tail.latitude, head.longitude, head.latitude,
                                     static_cast<float>(currentColour)});
    }
};

}  // namespace velmar::wind
