#include "formats/soundings.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string_view>

#include "frame/elementary.h"
#include "frame/file.h"
#include "frame/firstLine.h"
#include "frame/messages.h"
#include "frame/progress.h"

namespace velmar::formats {
namespace {

using frame::TextScanner;
namespace messages = frame::messages;

/// Temperatures and dew points of standard levels. Those of one sounding stay for the next that lacks the level:
/// an old way of this reader.
struct StandardLevels {
    float temperature850 = 0;
    float dewPoint850 = 0;
    float temperature700 = 0;
    float dewPoint700 = 0;
    float temperature500 = 0;

    void note(const SoundingLevel& level) {
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
};

/// Reads the levels that a number of values makes; says whether all are there.
bool readLevels(TextScanner& in, int valueCount, std::vector<SoundingLevel>& levels) {
    constexpr int valuesEach = 6;
    const int promised = std::max(valueCount / valuesEach, 0);
    const std::size_t count = in.recordsAtMost(promised, valuesEach);
    if (count < static_cast<std::size_t>(promised)) return false;
    levels.reserve(count);
    for (std::size_t k = 0; k < count; ++k) {
        int pressure = 0;
        int height = 0;
        int temperature = 0;
        int dewPoint = 0;
        int direction = 0;
        int speed = 0;
        if (scan(in, pressure, height, temperature, dewPoint, direction, speed) < valuesEach) return false;
        levels.push_back({pressure, static_cast<float>(height), static_cast<float>(temperature),
                          static_cast<float>(dewPoint), static_cast<float>(direction),
                          static_cast<float>(speed)});
    }
    return true;
}

/// Where the temperature is 0 between two levels: heights go with it, and the logarithms of pressures.
void interpolateFreezing(const SoundingLevel& below, const SoundingLevel& above, Sounding& sounding) {
    const double tBelow = below.temperature;
    const double tAbove = above.temperature;
    const auto atZero = [&](double lower, double upper) {
        return (lower * tAbove - upper * tBelow) / (tAbove - tBelow);
    };
    constexpr double base = 1000;
    const double logarithm =
        atZero(frame::logarithm(below.pressure / base), frame::logarithm(above.pressure / base));
    sounding.freezingHeight = static_cast<float>(atZero(below.height, above.height));
    sounding.freezingPressure = static_cast<float>(base * frame::exponential(logarithm));
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

void derive(Sounding& sounding, StandardLevels& standard) {
    if (sounding.levels.size() < 2) return;
    findFreezing(sounding, standard);
    constexpr int lowlands = 900;
    if (sounding.levels.front().pressure <= lowlands) return;
    const auto& [t850, d850, t700, d700, t500] = standard;
    sounding.kIndex = t850 - t500 + d850 - (t700 - d700);
    sounding.totalTotals = t850 + d850 - 2 * t500;
}

bool readHeader(TextScanner& in, SoundingFile& file, int& stations) {
    const std::optional<frame::FirstLine> line = frame::readFirstLine(in);
    if (!line || line->type != 5) return false;
    if (line->keyword != "diamond" && line->keyword != "March") return false;
    static_cast<void>(scan(in, file.year, file.month, file.day, file.hour, stations));
    if (file.year < 100) file.year += 2000;
    return stations >= 1;
}

}  // namespace

SoundingFile readSoundings(const char* path) {
    SoundingFile result;
    const std::optional<frame::FileText> file = frame::readWholeFile(path);
    if (!file) {
        std::fputs(messages::cannotOpenMapFile, stderr);
        return result;
    }
    frame::progress(messages::readingSoundings, {std::string_view(path)});
    TextScanner in(file->view());
    int stations = 0;
    if (!readHeader(in, result, stations)) return result;
    StandardLevels standard;
    for (int k = 0; k < stations; ++k) {
        Sounding sounding{};
        int values = 0;
        if (scan(in, sounding.number, sounding.longitude, sounding.latitude, sounding.height, values) < 5 ||
            !readLevels(in, values, sounding.levels))
            break;
        frame::progress(messages::derivingSounding, {sounding.number});
        derive(sounding, standard);
        result.soundings.push_back(std::move(sounding));
    }
    return result;
}

}  // namespace velmar::formats
