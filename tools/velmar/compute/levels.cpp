#include "compute/levels.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "common/text.h"
#include "compute/levelSpacing.h"
#include "contour/levels.h"

namespace velmar::tool {
namespace {

constexpr int customaryCount = 10;

/// Whether the levels start, start + interval, ... up to end are a reasonable number and one lies inside the
/// data.
bool headerGivesLines(const files::GridHeader& header, const PlacedExtremes& extremes) {
    const double interval = header.interval;
    const double steps = (static_cast<double>(header.endValue) - header.startValue) / interval;
    if (!(interval > 0) || !(steps >= 0) || steps >= mostLevels) return false;
    const double first = std::max(
        0.0, std::ceil((static_cast<double>(extremes.smallest.value) - header.startValue) / interval));
    return first <= std::floor(steps) && header.startValue + first * interval <= extremes.largest.value;
}

std::vector<float> multiplesInside(float interval, const PlacedExtremes& extremes) {
    const double first = std::ceil(static_cast<double>(extremes.smallest.value) / interval);
    const double last = std::floor(static_cast<double>(extremes.largest.value) / interval);
    if (last - first >= mostLevels)
        throw Problem(fmt::format("an interval of {} gives more than {} levels between {} and {}",
                                  plainNumber(interval), mostLevels, plainNumber(extremes.smallest.value),
                                  plainNumber(extremes.largest.value)));
    std::vector<float> levels;
    const int count = static_cast<int>(last - first) + 1;
    levels.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (int k = 0; k < count; ++k) levels.push_back(static_cast<float>((first + k) * interval));
    // Multiples of a small interval can be the same number where the values are large.
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    return levels;
}

std::vector<float> automaticLevels(int count, const grid::GridView& values) {
    const contour::LevelRequest request{.mode = contour::LevelMode::automatic,
                                        .start = 0,
                                        .end = 0,
                                        .interval = 0,
                                        .list = {},
                                        .count = count};
    return contour::chooseLevels(values, grid::missingInFiles, request).values;
}

std::vector<float> headerLevels(const GridFile& file) {
    const files::GridHeader& header = file.header;
    const contour::LevelRequest request{.mode = contour::LevelMode::interval,
                                        .start = header.startValue,
                                        .end = header.endValue,
                                        .interval = header.interval,
                                        .list = {},
                                        .count = 0};
    return contour::chooseLevels(file.values, grid::missingInFiles, request).values;
}

}  // namespace

LevelPlan planLevels(const LevelOptions& options, const grid::GridView& values) {
    if (!options.list.empty()) return {options.list, {}};
    const PlacedExtremes extremes = findExtremes(values, {});
    if (extremes.present == 0) return {{}, "it holds no data, only missing values"};
    if (options.interval > 0) return {multiplesInside(options.interval, extremes), {}};
    const bool counted = options.automaticCount > 0;
    return {automaticLevels(counted ? options.automaticCount : customaryCount, values), {}};
}

LevelPlan planLevels(const LevelOptions& options, const GridFile& file) {
    const files::GridHeader& header = file.header;
    const PlacedExtremes extremes = findExtremes(file.values, {});
    if (options.given() || extremes.present == 0) return planLevels(options, file.values);
    if (headerGivesLines(header, extremes)) return {headerLevels(file), {}};
    // Nothing to choose from, and nothing wrong with the header.
    if (extremes.smallest.value == extremes.largest.value) return {};
    return {planLevels(options, file.values).levels,
            fmt::format(
                "the levels of its header ({} to {} by {}) give no lines; levels were chosen from the data",
                plainNumber(header.startValue), plainNumber(header.endValue), plainNumber(header.interval))};
}

LevelPlan planStationLevels(const LevelOptions& options, const StationFile& file,
                            const grid::GridView& values) {
    const PlacedExtremes extremes = findExtremes(values, {});
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
