#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace velmar::triangles {

/// How the levels of station contours are chosen. The numbers are those that hosts pass.
enum class LevelChoice { byInterval = 0, fromStart = 1, list = 2 };

/// The levels that a host asks for.
struct StationLevelRequest {
    LevelChoice choice;
    float start;
    float interval;
    const float* list;
    int count;  ///< of the list
};

/// The levels of a call. When a list is copied into it, the levels of the call before are printed beside the new
/// ones; that is why the table is kept between calls.
struct LevelTable {
    static constexpr std::size_t most = 50;

    std::array<float, most> levels{};
    std::size_t count = 0;

    std::span<const float> view() const { return std::span(levels).first(count); }
};

/// Chooses the levels of values between two bounds, as described for SanJiao.
void chooseStationLevels(const StationLevelRequest& request, float smallest, float largest,
                         LevelTable& table);

/// Moves values that lie almost on a level off it: up from a level above 0, down from another.
void nudgeValues(std::span<const float> levels, std::span<float> values);

}  // namespace velmar::triangles
