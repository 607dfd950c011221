#include "frame/block.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <new>
#include <utility>

namespace velmar::frame {

void releaseBlock(void* block) noexcept { std::free(block); }

namespace {

/// Gives a block another length; an empty one is allocated. The old block stays as it was when that fails.
void resizeBlock(ResultBlock& block, std::size_t elements) {
    constexpr std::size_t most = std::numeric_limits<std::size_t>::max() / 2;
    if (elements > most / sizeof(float)) throw std::bad_alloc();
    auto* resized = static_cast<float*>(std::realloc(block.get(), elements * sizeof(float)));
    if (resized == nullptr) throw std::bad_alloc();
    static_cast<void>(block.release());
    block.reset(resized);
}

}  // namespace

ResultBlock allocateBlock(std::size_t elements) {
    ResultBlock block;
    resizeBlock(block, elements);
    return block;
}

void BlockWriter::append(std::span<const float> values) {
    next_ = std::copy(values.begin(), values.end(), next_);
}

std::span<float> BlockWriter::claim(std::size_t elements) {
    float* const first = next_;
    next_ += elements;
    return {first, elements};
}

void GrowingBlock::grow(std::size_t elements) {
    constexpr std::size_t first = 1024;
    const std::size_t capacity = std::max({size_ + elements, capacity_ + capacity_ / 2, first});
    resizeBlock(block_, capacity);
    capacity_ = capacity;
}

ResultBlock GrowingBlock::finish() {
    resizeBlock(block_, size_);
    size_ = 0;
    capacity_ = 0;
    return std::move(block_);
}

void appendGrid(BlockWriter& out, const GridView& grid, const GridPlace& place) {
    const auto [x0, y0, dx, dy] = place;
    out.append(-1.0F);
    out.appendCount(grid.nx);
    out.appendCount(grid.ny);
    const float lastX = x0 + (static_cast<float>(grid.nx) - 1.0F) * dx;
    const float lastY = y0 + (static_cast<float>(grid.ny) - 1.0F) * dy;
    out.append(std::array{x0, y0, lastX, lastY, dx, dy});
    out.append(std::span(grid.values, grid.size()));
}

}  // namespace velmar::frame
