#pragma once

#include <span>

#include "base/floats.h"
#include "grid/grid.h"

namespace velmar::capi {

/// A result on its way to the host, which takes it over with release().
using ResultBlock = base::Floats;

/// Fills a block from its first element to its last. The caller has counted beforehand, and appends exactly as many
/// elements as the block holds.
class BlockWriter {
public:
    explicit BlockWriter(const ResultBlock& block) : BlockWriter(block.get()) {}
    /// Fills a part of a block from here on.
    explicit BlockWriter(float* first) : next_(first) {}

    void append(float value) { *next_++ = value; }

    /// Counts travel as float values, exact up to 2^24.
    void appendCount(std::size_t count) { append(static_cast<float>(count)); }
    void appendCount(int count) { append(static_cast<float>(count)); }

    void append(std::span<const float> values);

    /// Longitude and latitude of each.
    void append(std::span<const base::LonLat> points);

    /// Leaves the next elements to the caller, who must set each of them.
    std::span<float> claim(std::size_t elements);

private:
    float* next_;
};

/// Appends what follows lines and polygons: -1, the grid's sizes and place, and its values.
void appendGrid(BlockWriter& out, const grid::GridView& grid, const grid::GridPlace& place);

}  // namespace velmar::capi
