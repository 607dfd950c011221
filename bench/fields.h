#pragma once

#include <array>
#include <cmath>
#include <random>
#include <vector>

#include "grid/grid.h"

namespace velmar::bench {

/// A square grid.
struct Field {
    int side;
    std::vector<float> values;

    grid::GridView view() const { return {values.data(), side, side}; }
};

/// A sum of sines between about -90 and 90, the same picture at every size.
inline Field smoothField(int side) {
    Field field{side, {}};
    field.values.reserve(field.view().size());
    for (int j = 0; j < side; ++j) {
        const double y = 6.283 * j / side;
        for (int i = 0; i < side; ++i) {
            const double x = 6.283 * i / side;
            const double value =
                40 * std::sin(3 * x + y) + 30 * std::sin(5 * y - x) + 20 * std::sin(4 * x + 7 * y);
            field.values.push_back(static_cast<float>(value));
        }
    }
    return field;
}

/// The smooth field with noise as wide as the distance of two levels.
inline Field noisyField(int side) {
    Field field = smoothField(side);
    std::mt19937 engine(1);
    std::uniform_real_distribution<float> noise(-6.5F, 6.5F);
    for (float& value : field.values) value += noise(engine);
    return field;
}

using Levels = std::array<float, 13>;

/// Levels 13 apart, symmetric about `middle`: with 0 they cut the fields evenly.
inline Levels levelsAround(float middle) {
    Levels levels{};
    for (int k = 0; k < 13; ++k)
        levels[static_cast<std::size_t>(k)] = middle + 13.0F * static_cast<float>(k - 6);
    return levels;
}

}  // namespace velmar::bench
