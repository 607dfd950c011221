#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>

namespace velmar::base {

/// Releases what allocateFloats has allocated. Null is allowed.
void releaseFloats(void* floats) noexcept;

struct FloatsRelease {
    void operator()(float* floats) const noexcept { releaseFloats(floats); }
};

/// An array of floats whose length its owner knows. All come from one allocator, so that a method's result can be
/// handed to a host without a copy.
using Floats = std::unique_ptr<float[], FloatsRelease>;

/// An array whose elements are not set yet. Throws std::bad_alloc.
Floats allocateFloats(std::size_t elements);

/// An array that grows at its end, for results whose length is not known in advance. Where the system can move
/// pages, large ones grow without being copied.
class GrowingFloats {
public:
    /// Values in a row: an array or a span.
    template <class Values>
    void append(const Values& values) {
        std::copy(values.begin(), values.end(), claim(values.size()).begin());
    }

    /// Leaves the next elements to the caller, who must set each of them before anything else is appended.
    std::span<float> claim(std::size_t elements) {
        if (elements > capacity_ - size_) grow(elements);
        const std::span<float> claimed(floats_.get() + size_, elements);
        size_ += elements;
        return claimed;
    }

    std::size_t size() const { return size_; }

    /// The array, cut to its size. This one is empty then.
    Floats finish();

private:
    void grow(std::size_t elements);

    Floats floats_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace velmar::base
