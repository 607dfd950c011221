#pragma once

#include <algorithm>
#include <vector>

namespace velmar::analysis {

/// Weighted sums of what stations bring to the points of a row, and of the weights.
struct RowSums {
    std::vector<double> sums;
    std::vector<double> weights;

    explicit RowSums(int nx) : sums(static_cast<std::size_t>(nx)), weights(sums.size()) {}

    void clear() {
        std::fill(sums.begin(), sums.end(), 0.0);
        std::fill(weights.begin(), weights.end(), 0.0);
    }
};

}  // namespace velmar::analysis
