#pragma once

#include <span>

#include "grid/grid.h"

namespace velmar::wind {

/// Colours of bands of values: colour k is that of the values from level k to below level k + 1. The first
/// level is never looked at: the first colour also has all that is below it. The last colour has all that is
/// above, and what is not a number. Look-ups in ascending levels are fast, and fastest for values near the last one.
class ColourTable {
public:
    /// As many levels as colours; with one colour the level is not needed.
    ColourTable(std::span<const float> levels, std::span<const int> colours);

    int operator()(float value);

private:
    std::span<const float> levels_;
    std::span<const int> colours_;
    bool rising_;
    std::size_t lastBand_ = 0;  ///< where the last look-up in ascending levels ended
};

/// What streamlines are coloured by.
struct LineColours {
    grid::GridView grid;  ///< without values: all lines have colour 1
    float missing;
    ColourTable table;
};

}  // namespace velmar::wind
