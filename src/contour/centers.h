#pragma once

#include <vector>

#include "grid/grid.h"

namespace velmar::contour {

/// A high or low of a grid.
struct Center {
    int column;
    int row;
    float value;
    bool high;
    float normalisedStrength;  ///< strength divided by the range of the data
    int stepCount;             ///< grid steps that the strength was measured over
    float strength;            ///< sum of the slopes in four directions, negative for a low
    int strengthClass;         ///< strength in tenths of the largest one, at least 5 units each
};

/// Finds the centres of a grid: inner points below or above their neighbours, ordered by column, then by row.
/// `missing` is left out of the range of the data; such points are still compared like others.
std::vector<Center> findGridCenters(const grid::GridView& grid, float missing);

}  // namespace velmar::contour
