#pragma once

#include <limits>
#include <span>

namespace velmar::grid {

/// Largest and smallest value of a grid. What is not a number takes no part, nor do values beyond the limits
/// that stand here when there are no others.
struct Extremes {
    float largest = -1e36F;
    float smallest = 1e36F;
};

/// Equal to no value, so that every value takes part.
inline constexpr float nothingMissing = std::numeric_limits<float>::quiet_NaN();

Extremes extremesOf(std::span<const float> values, float missing);

}  // namespace velmar::grid
