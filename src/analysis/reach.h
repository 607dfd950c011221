#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velmar::analysis {

/// So many columns or rows from the first on.
struct LineRange {
    std::size_t first;
    std::size_t count;

    std::size_t end() const { return first + count; }
};

/// The columns, or rows, of a block that may lie within a distance of a place, and a few more, counted from the
/// block's first one: work on a station keeps to these. The lines of the grid stand at start + i * step. The slack is
/// wider than the roundings of single precision.
inline LineRange linesWithin(double start, double step, LineRange block, double place, double distance) {
    const double reach = std::fmax(distance, 0.0);
    const double slack = 1e-5 * (std::fabs(start) + std::fabs(place) + reach) + std::fabs(step);
    const double one = (place - reach - slack - start) / step;
    const double other = (place + reach + slack - start) / step;
    if (std::isnan(one) || std::isnan(other)) return {0, block.count};
    const auto end = static_cast<double>(block.end());
    const double first = std::clamp(std::min(one, other), static_cast<double>(block.first), end);
    const double last = std::clamp(std::max(one, other) + 1.0, first, end);
    return {static_cast<std::size_t>(first) - block.first,
            static_cast<std::size_t>(last) - static_cast<std::size_t>(first)};
}

}  // namespace velmar::analysis
