#include "triangles/stationLevels.h"

#include <cmath>

#include "base/messages.h"
#include "base/progress.h"

namespace velmar::triangles {
namespace {

void addLevel(LevelTable& table, float level) { table.levels[table.count++] = level; }

/// Multiples of the interval between the bounds. Where the smallest value is between -interval and 0, the level 0 is
/// left out: this is established behaviour.
void chooseByInterval(const StationLevelRequest& request, float smallest, float largest, LevelTable& table) {
    const float interval = request.interval;
    if (!(interval > 0)) return;
    const float quotient = smallest / interval;
    const float whole = std::trunc(quotient);
    float start = whole * interval;
    if (quotient == whole || start < 0) start -= interval;
    // An interval too small for the values does not advance.
    constexpr int mostSteps = 1'000'000;
    for (int k = 1; k <= mostSteps && table.count < LevelTable::most; ++k) {
        const float level = start + static_cast<float>(k) * interval;
        if (!(level <= largest)) break;
        if (level >= smallest) addLevel(table, level);
    }
}

void copyList(const StationLevelRequest& request, LevelTable& table) {
    if (request.count < 1 || request.count >= static_cast<int>(LevelTable::most)) return;
    for (int k = 0; k < request.count; ++k) {
        const float level = request.list[k];
        base::progress(base::messages::copiedLevel, {table.levels[table.count], level, k});
        addLevel(table, level);
    }
}

}  // namespace

void chooseStationLevels(const StationLevelRequest& request, float smallest, float largest,
                         LevelTable& table) {
    table.count = 0;
    switch (request.choice) {
        case LevelChoice::byInterval:
            return chooseByInterval(request, smallest, largest, table);
        case LevelChoice::fromStart:
            if (!(request.start <= largest)) return;
            for (std::size_t k = 0; k < LevelTable::most; ++k)
                addLevel(table, request.start + static_cast<float>(k) * request.interval);
            return;
        case LevelChoice::list:
            return copyList(request, table);
    }
}

void nudgeValues(std::span<const float> levels, std::span<float> values) {
    constexpr double almost = 0.035;
    constexpr double step = 0.05;
    for (float& value : values) {
        for (const float level : levels) {
            if (!(static_cast<double>(std::fabs(value - level)) < almost)) continue;
            value = static_cast<float>(level > 0 ? value + step : value - step);
            break;
        }
    }
}

}  // namespace velmar::triangles
