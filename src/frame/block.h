#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include "frame/grid.h"

namespace velmar::frame {

/// Returns a block to the allocator that every result block comes from. Null is allowed.
void releaseBlock(void* block) noexcept;

struct BlockRelease {
    void operator()(float* block) const noexcept { releaseBlock(block); }
};

/// A heap block of floats on its way to the host, which takes it over with release().
using ResultBlock = std::unique_ptr<float[], BlockRelease>;

/// A block whose elements are not set yet. Throws std::bad_alloc.
ResultBlock allocateBlock(std::size_t elements);

/// Fills a block from its first element to its last. The caller has counted: it appends exactly as many
/// elements as the block holds.
class BlockWriter {
public:
    explicit BlockWriter(const ResultBlock& block) : next_(block.get()) {}

    void append(float value) { *next_++ = value; }

    /// Counts travel as float values, exact up to 2^24.
    void appendCount(std::size_t count) { append(static_cast<float>(count)); }
    void appendCount(int count) { append(static_cast<float>(count)); }

    void append(std::span<const float> values);

    /// Leaves the next elements to the caller, who must set each of them.
    std::span<float> claim(std::size_t elements);

private:
    float* next_;
};

/// Appends what stands behind lines and polygons: -1, the grid's sizes and place, and its values.
void appendGrid(BlockWriter& out, const GridView& grid, const GridPlace& place);

}  // namespace velmar::frame
