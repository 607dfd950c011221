#include "capi/block.h"

#include <algorithm>
#include <array>

namespace velmar::capi {

void BlockWriter::append(std::span<const float> values) {
    next_ = std::copy(values.begin(), values.end(), next_);
}

std::span<float> BlockWriter::claim(std::size_t elements) {
    float* const first = next_;
    next_ += elements;
    return {first, elements};
}

void appendGrid(BlockWriter& out, const grid::GridView& grid, const grid::GridPlace& place) {
    const auto [x0, y0, dx, dy] = place;
    out.append(-1.0F);
    out.appendCount(grid.nx);
    out.appendCount(grid.ny);
    const float lastX = x0 + (static_cast<float>(grid.nx) - 1.0F) * dx;
    const float lastY = y0 + (static_cast<float>(grid.ny) - 1.0F) * dy;
    out.append(std::array{x0, y0, lastX, lastY, dx, dy});
    out.append(std::span(grid.values, grid.size()));
}

}  // namespace velmar::capi
