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

/// No mode when the number is none.
constexpr std::optional<LevelMode> levelMode(int mode) {
    if (mode < 0 || mode > 2) return std::nullopt;
    return static_cast<LevelMode>(mode);
}

/// More levels than this count as a mistake and give none.
inline constexpr std::size_t mostLevels = 1'000'000;

/// The same for levels that a file's header asks for. A header is short, but each level may take as long, and leave as
/// many points, as the grid has.
inline constexpr std::size_t mostLevelsOfHeader = 10'000;

/// What a host says about levels; units are those of the grid.
struct LevelRequest {
    LevelMode mode;
    float start;
    float end;
    float interval;
    std::span<const float> list;
    int count;                      ///< wanted number of intervals (automatic)
    std::size_t most = mostLevels;  ///< between start and end (interval)
};

/// Levels in the order in which they are traced, not necessarily ascending.
struct Levels {
    std::vector<float> values;
    float start;  ///< the start that was asked for, or the one chosen from data that do not straddle zero
};

/// Chooses the levels of a grid. Grid values equal to `missing` take no part in an automatic choice.
///
/// Automatic levels are multiples of a rounded interval, from 0 both ways when the data lie on both sides of
/// zero, else from a rounded start upward, so far that they reach past the data. The interval is the data's
/// range divided by the wanted count, rounded to one significant digit (above 10, below 1) or to its integer
/// part.
Levels chooseLevels(const grid::GridView& grid, float missing, const LevelRequest& request);

}  // namespace velmar::contour
