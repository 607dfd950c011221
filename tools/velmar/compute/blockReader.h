#pragma once

#include <cstddef>
#include <span>

namespace velmar::tool {

/// Reads the elements of a result block one after another.
class BlockReader {
public:
    explicit BlockReader(const float* next) : next_(next) {}
    float value() { return *next_++; }
    std::size_t count() { return static_cast<std::size_t>(value()); }
    std::span<const float> values(std::size_t count) {
        const std::span<const float> view(next_, count);
        next_ += count;
        return view;
    }

private:
    const float* next_;
};

}  // namespace velmar::tool
