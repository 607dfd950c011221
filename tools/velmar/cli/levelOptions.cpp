#include "cli/levels.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>

#include "cli/arguments.h"
#include "cli/problem.h"
#include "cli/text.h"
#include "contour/levels.h"

namespace velmar::tool {
namespace {

/// More lines than this cannot be told apart on any chart; a file that asks for them has a slip in its
/// header.
constexpr int mostLevels = 1000;
constexpr int customaryCount = 10;

/// Whether the levels start, start + interval, ... up to end are a reasonable number and one lies inside the
/// data.
bool headerGivesLines(const files::GridHeader& header, const Extremes& extremes) {
    const double interval = header.interval;
    const double steps = (static_cast<double>(header.endValue) - header.startValue) / interval;
    if (!(interval > 0) || !(steps >= 0) || steps >= mostLevels) return false;
    const double first = std::max(
        0.0, std::ceil((static_cast<double>(extremes.smallest.value) - header.startValue) / interval));
    return first <= std::floor(steps) && header.startValue + first * interval <= extremes.largest.value;
}

std::vector<float> multiplesInside(float interval, const Extremes& extremes) {
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

std::vector<float> parseLevels(const std::string& text) {
    std::vector<float> levels;
    for (const double value : parseNumbers("--levels", text)) levels.push_back(static_cast<float>(value));
    std::ranges::sort(levels);
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    if (levels.size() > mostLevels)
        throw CLI::ValidationError("--levels", fmt::format("more than {} levels", mostLevels));
    return levels;
}

float parseInterval(const std::string& text) {
    const auto values = parseNumbers("--interval", text);
    const auto interval = static_cast<float>(values.front());
    if (values.size() != 1 || !(interval > 0))
        throw CLI::ValidationError("--interval", fmt::format("\"{}\" is not one number above 0", text));
    return interval;
}

}  // namespace

LevelPlan planLevels(const LevelOptions& options, const grid::GridView& values) {
    if (!options.list.empty()) return {options.list, {}};
    const Extremes extremes = findExtremes(values, {});
    if (extremes.present == 0) return {{}, "it holds no data, only missing values"};
    if (options.interval > 0) return {multiplesInside(options.interval, extremes), {}};
    const bool counted = options.automaticCount > 0;
    return {automaticLevels(counted ? options.automaticCount : customaryCount, values), {}};
}

LevelPlan planLevels(const LevelOptions& options, const GridFile& file) {
    const files::GridHeader& header = file.header;
    const Extremes extremes = findExtremes(file.values, {});
    if (options.given() || extremes.present == 0) return planLevels(options, file.values);
    if (headerGivesLines(header, extremes)) return {headerLevels(file), {}};
    // Nothing to choose from, and nothing wrong with the header.
    if (extremes.smallest.value == extremes.largest.value) return {};
    return {planLevels(options, file.values).levels,
            fmt::format(
                "the levels of its header ({} to {} by {}) give no lines; levels were chosen from the data",
                plainNumber(header.startValue), plainNumber(header.endValue), plainNumber(header.interval))};
}

void addLevelOptions(CLI::App& command, LevelOptions& options) {
    auto* list = command.add_option_function<std::string>(
        "--levels", [&options](const std::string& text) { options.list = parseLevels(text); },
        "Levels to draw, as 500,520,540");
    auto* interval = command.add_option_function<std::string>(
        "--interval", [&options](const std::string& text) { options.interval = parseInterval(text); },
        "Draw every multiple of this number inside the data");
    auto* automatic = command.add_option("--auto", options.automaticCount,
                                         "Choose about so many levels from the data (1 to 200)");
    automatic->check(CLI::Range(1, 200));
    list->excludes(interval)->excludes(automatic);
    interval->excludes(automatic);
}

}  // namespace velmar::tool
