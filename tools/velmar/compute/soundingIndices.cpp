#include "compute/soundingIndices.h"

#include <algorithm>

#include "compute/thermodynamics.h"

namespace velmar::tool {
namespace {

/// A level with its temperature and dew point.
struct MoistLevel {
    double pressure;
    double temperature;
    double dewPoint;
};

std::vector<MoistLevel> moistLevels(const std::vector<CheckedLevel>& levels) {
    std::vector<MoistLevel> moist;
    for (const CheckedLevel& level : levels)
        if (level.temperature && level.dewPoint)
            moist.push_back({static_cast<double>(level.pressure), *level.temperature, *level.dewPoint});
    return moist;
}

std::optional<MoistLevel> at(const std::vector<MoistLevel>& levels, double pressure) {
    const auto found = std::ranges::find(levels, pressure, &MoistLevel::pressure);
    return found == levels.end() ? std::nullopt : std::optional(*found);
}

std::optional<double> temperatureAt(const std::vector<CheckedLevel>& levels, int pressure) {
    for (const CheckedLevel& level : levels)
        if (level.pressure == pressure && level.temperature) return *level.temperature;
    return std::nullopt;
}

/// How much warmer the air around is at 500 hPa than air lifted there.
double stability(const MoistLevel& from, double temperature500) {
    return temperature500 - liftedTemperature(from.pressure, from.temperature, from.dewPoint, 500);
}

/// Kilograms of vapour in a column of a square metre: the specific humidity, taken to be linear in pressure
/// between levels. There is little above 500 hPa, but what is below must be known.
std::optional<double> precipitableWater(const std::vector<MoistLevel>& levels, int lowestPressure) {
    constexpr double gravity = 9.80665;
    constexpr double pascals = 100;
    if (levels.size() < 2 || levels.front().pressure != lowestPressure || levels.back().pressure > 500)
        return std::nullopt;
    const auto humidity = [](const MoistLevel& level) {
        const double ratio = mixingRatio(level.pressure, level.dewPoint);
        return ratio / (1 + ratio);
    };
    double sum = 0;
    for (std::size_t k = 1; k < levels.size(); ++k)
        sum += (humidity(levels[k - 1]) + humidity(levels[k])) / 2 *
               (levels[k - 1].pressure - levels[k].pressure);
    return sum * pascals / gravity;
}

}  // namespace

SoundingIndices indicesOf(const std::vector<CheckedLevel>& levels) {
    SoundingIndices indices;
    const std::vector<MoistLevel> moist = moistLevels(levels);
    if (moist.empty()) return indices;
    indices.precipitableWater = precipitableWater(moist, levels.front().pressure);
    const auto t500 = temperatureAt(levels, 500);
    if (!t500) return indices;
    const auto low = at(moist, 850);
    const auto middle = at(moist, 700);
    if (low && middle)
        indices.k = low->temperature - *t500 + low->dewPoint - (middle->temperature - middle->dewPoint);
    if (low) {
        indices.totalTotals = low->temperature + low->dewPoint - 2 * *t500;
        indices.showalter = stability(*low, *t500);
    }
    if (moist.front().pressure > 500 && moist.front().pressure == levels.front().pressure)
        indices.lifted = stability(moist.front(), *t500);
    return indices;
}

}  // namespace velmar::tool
