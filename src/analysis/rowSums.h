#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace velmar::analysis {

/// Weighted sums of what stations bring to the points of a row, and of the weights.
struct RowSums {
    std::vector<double> sums;
    std::vector<double> weights;

    explicit RowSums(std::size_t points) : sums(points), weights(points) {}

    void clear() {
        std::fill(sums.begin(), sums.end(), 0.0);
        std::fill(weights.begin(), weights.end(), 0.0);
    }
};

}  // namespace velmar::analysis
