#include "compute/levelSpacing.h"

#include <algorithm>
#include <cmath>

namespace velmar::tool {

std::vector<float> levelsOf(const ContourSet& set) {
    std::vector<float> levels;
    for (const Isoline& line : set.lines) levels.push_back(line.value);
    std::ranges::sort(levels);
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    return levels;
}

std::vector<float> ascending(std::vector<float> levels) {
    std::erase_if(levels, [](float level) { return !std::isfinite(level); });
    std::ranges::sort(levels);
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    return levels;
}

float spacingOf(const std::vector<float>& levels) {
    float spacing = 0;
    for (std::size_t k = 1; k < levels.size(); ++k) {
        const float step = levels[k] - levels[k - 1];
        if (k == 1 || step < spacing) spacing = step;
    }
    return spacing;
}

float evenStep(const std::vector<float>& levels) {
    const float spacing = spacingOf(levels);
    const auto stepsTo = [&](float level) { return (level - levels.front()) / spacing; };
    const bool even = std::ranges::all_of(
        levels, [&](float level) { return std::fabs(stepsTo(level) - std::round(stepsTo(level))) < 0.01F; });
    if (levels.size() < 3 || !even) return 0;
    // Over all levels the roundings of single ones cancel.
    return (levels.back() - levels.front()) / std::round(stepsTo(levels.back()));
}

float roundedFor(float spacing, float value) {
    if (!(spacing > 0)) return value;
    const double digit = std::pow(10.0, std::floor(std::log10(spacing)) - 2);
    return static_cast<float>(std::round(value / digit) * digit);
}

bool isBoldLevel(float level, float boldValue, float spacing) {
    return std::fabs(level - boldValue) <= 0.01F * spacing;
}

}  // namespace velmar::tool
