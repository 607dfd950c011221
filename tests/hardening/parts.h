#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <string>

#include "calls.h"
#include "faults.h"
#include "support/files.h"

/// What calls are made of.
namespace velmar::test {

inline constexpr int nx = 14;
inline constexpr int ny = 11;
inline constexpr int n = nx * ny;
inline constexpr int stationCount = 12;

/// Waves from 0 to 10 with a hole; as a list of stations, scattered values.
inline const std::array<float, n> numbers = [] {
    std::array<float, n> values{};
    for (int k = 0; k < n; ++k) {
        const float x = static_cast<float>(k % nx);
        const float y = static_cast<float>(k) / nx;
        values[static_cast<std::size_t>(k)] = 5 + 3 * std::sin(x) + 2 * std::cos(y);
    }
    values[40] = 9999;
    return values;
}();
inline constexpr std::array<float, stationCount> lon{2, 9, 4, 12, 6, 1, 13, 7, 3, 10, 5, 11};
inline constexpr std::array<float, stationCount> lat{3, 1, 8, 6, 5, 9, 10, 2, 6, 8, 1, 4};
inline constexpr std::array<float, 3> levels{3, 5, 7};
inline constexpr std::array<int, 3> colours{1, 2, 3};
inline constexpr std::array<float, 3> radii{5, 3, 2};

template <class T>
Seen bytes(const T* first, std::size_t count) {
    return {reinterpret_cast<const char*>(first), count * sizeof(T)};
}

/// What a host sees of a block, which is released.
inline Seen taken(float* block) {
    if (block == nullptr) return "null";
    const std::size_t size = faults::bytesOf(block);
    Seen seen(reinterpret_cast<const char*>(block), size);
    if (size == sizeof(float) && block[0] < 0) seen = std::to_string(static_cast<int>(block[0]));
    freecPointer(block);
    return seen;
}

/// Calls an export under the plan for faults.
template <class Export>
auto called(Export&& call) {
    decltype(call()) result{};
    faults::during([&] { result = call(); });
    return result;
}

/// The same with an export that gives a block.
template <class Export>
Seen block(Export&& call) {
    return taken(called(call));
}

/// A star that leaves the unit square; of more than nine points.
inline const std::array<float, 24> star = [] {
    std::array<float, 24> points{};
    for (std::size_t k = 0; k < 12; ++k) {
        const float radius = k % 2 == 0 ? 0.9F : 0.3F;
        const float angle = static_cast<float>(k) * 0.5235988F;
        points[2 * k] = 0.5F + radius * std::cos(angle);
        points[2 * k + 1] = 0.5F + radius * std::sin(angle);
    }
    return points;
}();

}  // namespace velmar::test
