#include "base/floats.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <new>
#include <utility>

namespace velmar::base {

void releaseFloats(void* floats) noexcept { std::free(floats); }

namespace {

/// Resizes an array; an empty one is allocated. On failure the old array is unchanged.
void resizeFloats(Floats& floats, std::size_t elements) {
    constexpr std::size_t most = std::numeric_limits<std::size_t>::max() / 2;
    if (elements > most / sizeof(float)) throw std::bad_alloc();
    auto* resized = static_cast<float*>(std::realloc(floats.get(), elements * sizeof(float)));
    if (resized == nullptr) throw std::bad_alloc();
    static_cast<void>(floats.release());
    floats.reset(resized);
}

}  // namespace

Floats allocateFloats(std::size_t elements) {
    Floats floats;
    resizeFloats(floats, elements);
    return floats;
}

void GrowingFloats::grow(std::size_t elements) {
    constexpr std::size_t first = 1024;
    const std::size_t capacity = std::max({size_ + elements, capacity_ + capacity_ / 2, first});
    resizeFloats(floats_, capacity);
    capacity_ = capacity;
}

Floats GrowingFloats::finish() {
    resizeFloats(floats_, size_);
    size_ = 0;
    capacity_ = 0;
    return std::move(floats_);
}

}  // namespace velmar::base
