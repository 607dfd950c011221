#pragma once

#include <cstdint>
#include <unordered_map>

#include "triangles/triangulation.h"

namespace velmar::triangles {

/// In how many triangles each edge is.
class EdgeCounts {
public:
    void reserve(std::size_t edges) { counts_.reserve(edges); }

    void add(const Triangle& triangle) {
        const auto [a, b, c] = triangle;
        ++counts_[keyOf(a, b)];
        ++counts_[keyOf(a, c)];
        ++counts_[keyOf(b, c)];
    }

    int operator()(std::uint32_t a, std::uint32_t b) const {
        const auto found = counts_.find(keyOf(a, b));
        return found == counts_.end() ? 0 : found->second;
    }

private:
    static std::uint64_t keyOf(std::uint32_t a, std::uint32_t b) {
        return a < b ? std::uint64_t{a} << 32U | b : std::uint64_t{b} << 32U | a;
    }

    std::unordered_map<std::uint64_t, int> counts_;
};

}  // namespace velmar::triangles
