#pragma once

#include <limits>
#include <span>

namespace velmar::grid {

/// Largest and smallest value of a grid. Values that are not numbers are ignored, and so are those beyond the initial
/// values below, which remain when there are no others.
struct Extremes {
    float largest = -1e36F;
    float smallest = 1e36F;
};

/// Equal to no value, so that no value counts as missing.
inline constexpr float nothingMissing = std::numeric_limits<float>::quiet_NaN();

Extremes extremesOf(std::span<const float> values, float missing);

}  // namespace velmar::grid
