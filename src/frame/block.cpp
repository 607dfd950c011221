#include "frame/block.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <new>

namespace velmar::frame {

void releaseBlock(void* block) noexcept { std::free(block); }

ResultBlock allocateBlock(std::size_t elements) {
    if (elements > std::numeric_limits<std::size_t>::max() / sizeof(float)) throw std::bad_alloc();
    auto* block = static_cast<float*>(std::malloc(elements * sizeof(float)));
    if (block == nullptr) throw std::bad_alloc();
    return ResultBlock(block);
}

void BlockWriter::append(std::span<const float> values) {
    next_ = std::copy(values.begin(), values.end(), next_);
}

std::span<float> BlockWriter::claim(std::size_t elements) {
    float* const first = next_;
    next_ += elements;
    return {first, elements};
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
