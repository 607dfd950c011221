#pragma once

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

namespace velmar::test {

/// A random field of whole values from 0 to `kinds` - 1, so that ties, plateaus and saddles abound; about one
/// point in `missingEvery` is 9999 (none when it is 0).
inline std::vector<float> steppedField(std::mt19937& random, int nx, int ny, unsigned kinds,
                                       unsigned missingEvery) {
    std::vector<float> field(static_cast<std::size_t>(nx * ny));
    for (float& value : field) {
        value = static_cast<float>(random() % kinds);
        if (missingEvery != 0 && random() % missingEvery == 0) value = 9999;
    }
    return field;
}

/// A smooth field with values from about -3 to 3.
inline std::vector<float> smoothField(std::mt19937& random, int nx, int ny) {
    const float a = 0.1F + static_cast<float>(random() % 100) / 100;
    const float b = 0.1F + static_cast<float>(random() % 100) / 100;
    std::vector<float> field;
    for (int j = 0; j < ny; ++j) {
        for (int i = 0; i < nx; ++i) {
            const auto x = static_cast<float>(i);
            const auto y = static_cast<float>(j);
            field.push_back(std::sin(a * x + b * y) + std::cos(b * x - a * y) + std::sin(0.3F * x));
        }
    }
    return field;
}

}  // namespace velmar::test
