#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "grid/grid.h"

namespace velmar::contour {

/// How a host asks for contour levels.
enum class LevelMode : unsigned {
    interval = 0,   ///< from start, end and interval
    automatic = 1,  ///< from the data
    list = 2,       ///< the host's own
};

/// Nullopt unless the number is 0, 1 or 2.
constexpr std::optional<LevelMode> levelMode(int mode) {
    if (mode < 0 || mode > 2) return std::nullopt;
    return static_cast<LevelMode>(mode);
}

/// The limit on the levels that a file's header asks for. A header is short, but each of its levels may cost as much
/// time and as many points as the grid has.
inline constexpr std::size_t mostLevelsOfHeader = 10'000;

/// The levels that a host asks for, in units of the grid.
struct LevelRequest {
    LevelMode mode;
    float start;
    float end;
    float interval;
    std::span<const float> list;
    int count;                            ///< wanted number of intervals (automatic)
    std::size_t most = grid::mostLevels;  ///< largest number of levels (interval)
};

/// Levels in the order in which they are traced, not necessarily ascending.
struct Levels {
    std::vector<float> values;
    float start;  ///< the start that was asked for, or the one chosen from data that do not straddle zero
};

/// Chooses the levels of a grid. Grid values equal to `missing` are left out of an automatic choice.
///
/// Automatic levels are multiples of a rounded interval, from 0 both ways when the data lie on both sides of
/// zero, else from a rounded start upward, far enough to reach past the data. The interval is the data's
/// range divided by the wanted count, rounded to one significant digit (above 10, below 1) or to its integer
/// part.
Levels chooseLevels(const grid::GridView& grid, float missing, const LevelRequest& request);

}  // namespace velmar::contour
