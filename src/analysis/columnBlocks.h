#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "analysis/distance.h"
#include "grid/grid.h"

namespace velmar::analysis {

/// How many columns are worked on at a time. Tables of a row's points are no longer than that, however long the row
/// is; most grids are one block.
inline constexpr std::size_t blockColumns = 8192;

/// Hands out the columns of a grid from west to east, block by block.
template <class Work>
void forEachColumnBlock(int nx, Work work) {
    const auto columns = static_cast<std::size_t>(nx);
    for (std::size_t first = 0; first < columns; first += blockColumns)
        work(LineRange{first, std::min(blockColumns, columns - first)});
}

/// The longitudes of a block's columns.
inline std::vector<float> columnLongitudes(const grid::GridPlace& place, LineRange block) {
    std::vector<float> longitudes;
    longitudes.reserve(block.count);
    for (std::size_t i = block.first; i < block.end(); ++i)
        longitudes.push_back(place.startLongitude +
                             static_cast<float>(static_cast<int>(i)) * place.longitudeStep);
    return longitudes;
}

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
