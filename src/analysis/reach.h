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
    /// Those that lie in a block, counted from the block's first one.
    LineRange within(const LineRange& block) const {
        const std::size_t begin = std::clamp(first, block.first, block.end());
        return {begin - block.first, std::clamp(end(), begin, block.end()) - begin};
    }
};

/// The columns, or rows, that may lie within a distance of a place, and a few more: work on a station keeps to
/// these. The lines stand at start + i * step. The slack is wider than the roundings of single precision.
inline LineRange linesWithin(double start, double step, std::size_t count, double place, double distance) {
    const double reach = std::fmax(distance, 0.0);
    const double slack = 1e-5 * (std::fabs(start) + std::fabs(place) + reach) + std::fabs(step);
    const double one = (place - reach - slack - start) / step;
    const double other = (place + reach + slack - start) / step;
    if (std::isnan(one) || std::isnan(other)) return {0, count};
    const auto lines = static_cast<double>(count);
    const double first = std::clamp(std::min(one, other), 0.0, lines);
    const double last = std::clamp(std::max(one, other) + 1.0, first, lines);
    return {static_cast<std::size_t>(first),
            static_cast<std::size_t>(last) - static_cast<std::size_t>(first)};
}

}  // namespace velmar::analysis
