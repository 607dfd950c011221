#pragma once

#include <cmath>
#include <limits>

namespace velmar::base {

/// Truncates toward zero. What does not fit saturates at the ends of int; not-a-number gives 0.
inline int truncateToInt(double value) {
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    if (std::isnan(value)) return 0;
    if (value <= lowest) return std::numeric_limits<int>::min();
    if (value >= highest) return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}

}  // namespace velmar::base
