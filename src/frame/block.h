#pragma once

#include <algorithm>
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

/// A block that grows at its end, for results whose length shows only when they are made. Large ones do so
/// without being copied where the system can move pages.
class GrowingBlock {
public:
    /// Values in a row: an array or a span.
    template <class Values>
    void append(const Values& values) {
        std::copy(values.begin(), values.end(), claim(values.size()).begin());
    }

    /// Leaves the next elements to the caller, who must set each of them before anything else is appended.
    std::span<float> claim(std::size_t elements) {
        if (elements > capacity_ - size_) grow(elements);
        const std::span<float> claimed(block_.get() + size_, elements);
        size_ += elements;
        return claimed;
    }

    std::size_t size() const { return size_; }

    /// The block, cut to its size. This one is empty then.
    ResultBlock finish();

private:
    void grow(std::size_t elements);

    ResultBlock block_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

/// Appends what stands behind lines and polygons: -1, the grid's sizes and place, and its values.
void appendGrid(BlockWriter& out, const GridView& grid, const GridPlace& place);

}  // namespace velmar::frame
