#include "contour/levels.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>

#include "base/messages.h"
#include "base/numbers.h"
#include "base/progress.h"
#include "grid/extremes.h"

namespace velmar::contour {

namespace {

using base::progress;
using base::truncateToInt;
using grid::Extremes;
using grid::mostLevels;
namespace messages = base::messages;

/// An interval and the power of ten used to round it.
struct RoundedInterval {
    float interval;
    int multiplier;
};

/// A number as text, as by `%width.decimalsf`.
std::string fixedText(double value, int decimals, std::size_t width) {
    std::array<char, 128> digits;  // the largest single has 39 digits before the point
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                            std::chars_format::fixed, decimals);
    std::string text(digits.data(), end);
    if (text.size() < width) text.insert(0, width - text.size(), ' ');
    return text;
}

/// 10 to the power of `zeros`, or the largest int.
int powerOfTen(std::size_t zeros) {
    std::int64_t power = 1;
    for (; zeros != 0 && power < std::numeric_limits<int>::max(); --zeros) power *= 10;
    return static_cast<int>(std::min<std::int64_t>(power, std::numeric_limits<int>::max()));
}

float wholeMultiple(int count, int multiplier) {
    return static_cast<float>(std::int64_t{count} * std::int64_t{multiplier});
}

RoundedInterval roundLargeInterval(float interval) {
    const int multiplier = powerOfTen(fixedText(interval, 0, 0).size() - 1);
    const int count = truncateToInt(interval / static_cast<float>(multiplier) + 0.5);
    return {wholeMultiple(count, multiplier), multiplier};
}

/// Rounds an interval below 1. Its first significant digit is sought in its text from position 2 on. Tiny
/// intervals are written padded, so that position 2 is their decimal point: their multiplier is 10 and they
/// round to 0.
RoundedInterval roundSmallInterval(float interval) {
    const bool tiny = !(interval > 1e-7);
    if (!(interval > 1e-15)) interval = 1e-20F;
    const std::string text = tiny ? fixedText(interval, 17, 20) : fixedText(interval, 10, 12);
    const std::size_t position = text.find_first_not_of('0', 2);
    progress(messages::intervalDigits, {text.size(), std::string_view(text), position});
    const int multiplier = powerOfTen(position - 1);
    const float product = interval * static_cast<float>(multiplier);
    const float rounded = static_cast<float>(truncateToInt(product + 0.5)) / static_cast<float>(multiplier);
    progress(messages::intervalMultiple, {multiplier, rounded});
    return {rounded, multiplier};
}

RoundedInterval roundInterval(float interval) {
    if (interval > 10.0F) return roundLargeInterval(interval);
    if (interval > 1.0F) return {static_cast<float>(truncateToInt(interval)), 10};
    if (interval == 1.0F) return {1.0F, 1};
    return roundSmallInterval(interval);
}

float chooseStart(const Extremes& data, int multiplier) {
    const auto power = static_cast<float>(multiplier);
    const double range = static_cast<double>(data.largest) - static_cast<double>(data.smallest);
    if (range > 1.0) return wholeMultiple(truncateToInt(data.smallest / power), multiplier);
    const float product = data.smallest * power;
    const float start = static_cast<float>(truncateToInt(product)) / power;
    progress(messages::startValueDigits, {data.smallest, multiplier, product / (10.0F * power), start});
    return start;
}

/// The levels start + k * interval for k = 0, 1, ... up to the first that is not below `end`; empty when there
/// are too many. An interval that does not advance gives the first level only.
std::vector<float> levelsUpTo(float end, float start, float interval) {
    std::vector<float> levels;
    do {
        levels.push_back(static_cast<float>(levels.size()) * interval + start);
        progress(messages::countedLevel, {levels.back(), end, levels.size()});
    } while (interval > 0.0F && levels.back() < end && levels.size() <= mostLevels);
    if (levels.size() > mostLevels) levels.clear();
    return levels;
}

/// Appends -interval, -2 interval, ... up to the first that is not above `end`.
void appendLevelsDownTo(float end, float interval, std::vector<float>& levels) {
    int k = 0;
    do {
        levels.push_back(static_cast<float>(--k) * interval);
    } while (levels.back() > end && levels.size() <= mostLevels);
}

/// Levels of data on both sides of zero.
std::vector<float> levelsAroundZero(const Extremes& data, float interval) {
    std::vector<float> levels = levelsUpTo(data.largest, 0.0F, interval);
    for (std::size_t k = 0; k < levels.size(); ++k) progress(messages::lineValue);
    const bool anyBelow = !levels.empty() && interval > 0.0F && data.smallest < -interval;
    if (anyBelow) appendLevelsDownTo(data.smallest, interval, levels);
    return levels;
}

/// Levels of data on one side of zero.
std::vector<float> levelsFrom(float start, const Extremes& data, float interval) {
    progress(messages::startValue, {start, data.largest, 0});
    if (!(start < data.largest)) return {};
    std::vector<float> levels = levelsUpTo(data.largest, start, interval);
    for (const float level : levels) {
        progress(messages::countedLevel, {level, level, levels.size()});
        progress(messages::lineValue);
    }
    return levels;
}

Levels automaticLevels(const Extremes& data, const LevelRequest& request) {
    const float firstInterval = (data.largest - data.smallest) / static_cast<float>(request.count);
    progress(messages::firstInterval, {firstInterval, data.largest, data.smallest});
    const auto [interval, multiplier] = roundInterval(firstInterval);
    progress(messages::roundedInterval, {interval, data.largest, data.smallest});
    if (data.largest > 0.0F && data.smallest < 0.0F) return {levelsAroundZero(data, interval), request.start};
    const float start = chooseStart(data, multiplier);
    return {levelsFrom(start, data, interval), start};
}

std::vector<float> intervalLevels(const LevelRequest& request) {
    const double end = request.end;
    const int count = truncateToInt((end - request.start) / request.interval + 1.0);
    std::vector<float> levels;
    if (count < 1 || static_cast<std::size_t>(count) > request.most) return levels;
    for (int k = 0; k < count; ++k)
        levels.push_back(static_cast<float>(k) * request.interval + request.start);
    return levels;
}

}  // namespace

Levels chooseLevels(const grid::GridView& grid, float missing, const LevelRequest& request) {
    Levels levels{{}, request.start};
    switch (request.mode) {
        case LevelMode::interval:
            levels.values = intervalLevels(request);
            break;
        case LevelMode::automatic:
            levels = automaticLevels(grid::extremesOf({grid.values, grid.size()}, missing), request);
            break;
        case LevelMode::list:
            if (request.list.size() <= mostLevels)
                levels.values.assign(request.list.begin(), request.list.end());
            break;
    }
    if (levels.values.size() > mostLevels) levels.values.clear();
    return levels;
}

}  // namespace velmar::contour
