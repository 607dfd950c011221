#include "compute/stationLevels.h"

#include <algorithm>

#include "compute/shading.h"

namespace velmar::tool {

LevelPlan planStationLevels(const LevelOptions& options, const StationFile& file,
                            const grid::GridView& values) {
    constexpr std::size_t mostLevels = 1000;
    const Extremes extremes = findExtremes(values, {});
    const std::vector<float> listed = ascending(file.levels);
    const bool usable =
        listed.size() <= mostLevels && extremes.present > 0 && std::ranges::any_of(listed, [&](float level) {
            return level > extremes.smallest.value && level < extremes.largest.value;
        });
    if (!options.given() && usable) return {listed, {}};
    LevelPlan plan = planLevels(options, values);
    std::ranges::sort(plan.levels);
    return plan;
}

}  // namespace velmar::tool
