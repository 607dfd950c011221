#include "sounding/derive.h"

#include "base/elementary.h"

namespace velmar::sounding {

using base::Sounding;
using base::SoundingLevel;

namespace {

/// Where the temperature is 0 between two levels: height and the logarithm of pressure are linear in temperature.
void interpolateFreezing(const SoundingLevel& below, const SoundingLevel& above, Sounding& sounding) {
    const double tBelow = below.temperature;
    const double tAbove = above.temperature;
    const auto atZero = [&](double lower, double upper) {
        return (lower * tAbove - upper * tBelow) / (tAbove - tBelow);
    };
    constexpr double base = 1000;
    const double logarithm =
        atZero(base::logarithm(below.pressure / base), base::logarithm(above.pressure / base));
    sounding.freezingHeight = static_cast<float>(atZero(below.height, above.height));
    sounding.freezingPressure = static_cast<float>(base * base::exponential(logarithm));
}

/// Goes up to the freezing level, or through all levels when the lowest is frozen, and notes the standard
/// levels passed.
void findFreezing(Sounding& sounding, StandardLevels& standard) {
    const std::vector<SoundingLevel>& levels = sounding.levels;
    const SoundingLevel& lowest = levels.front();
    const bool frozen = !(lowest.temperature > 0);
    if (frozen) {
        sounding.freezingHeight = lowest.height;
        sounding.freezingPressure = static_cast<float>(lowest.pressure);
    }
    for (std::size_t k = 1; k < levels.size(); ++k) {
        if (!frozen && levels[k].temperature <= 0)
            return interpolateFreezing(levels[k - 1], levels[k], sounding);
        standard.note(levels[k]);
    }
}

}  // namespace

void StandardLevels::note(const SoundingLevel& level) {
    if (level.pressure == 850) {
        temperature850 = level.temperature;
        dewPoint850 = level.dewPoint;
    } else if (level.pressure == 700) {
        temperature700 = level.temperature;
        dewPoint700 = level.dewPoint;
    } else if (level.pressure == 500) {
        temperature500 = level.temperature;
    }
}

void derive(Sounding& sounding, StandardLevels& standard) {
    if (sounding.levels.size() < 2) return;
    findFreezing(sounding, standard);
    constexpr int lowlands = 900;
    if (sounding.levels.front().pressure <= lowlands) return;
    const auto& [t850, d850, t700, d700, t500] = standard;
    sounding.kIndex = t850 - t500 + d850 - (t700 - d700);
    sounding.totalTotals = t850 + d850 - 2 * t500;
}

}  // namespace velmar::sounding
