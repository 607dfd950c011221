#include "frame/block.h"

#include <algorithm>
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

}  // namespace velmar::frame
