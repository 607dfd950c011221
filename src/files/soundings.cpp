#include "files/soundings.h"

#include <algorithm>
#include <optional>

#include "files/firstLine.h"

namespace velmar::files {
namespace {

using base::SoundingLevel;
using base::TextScanner;

/// Reads as many levels as the number of values makes; returns whether all of them are there.
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

bool readHeader(TextScanner& in, SoundingFile& file, int& stations) {
    const std::optional<FirstLine> line = readFirstLine(in);
    if (!line || line->type != 5) return false;
    if (line->keyword != "diamond" && line->keyword != "March") return false;
    static_cast<void>(scan(in, file.year, file.month, file.day, file.hour, stations));
    if (file.year < 100) file.year += 2000;
    return stations >= 1;
}

}  // namespace

SoundingFile readSoundings(TextScanner& in) {
    SoundingFile result;
    int stations = 0;
    if (!readHeader(in, result, stations)) return result;
    for (int k = 0; k < stations; ++k) {
        base::Sounding sounding{};
        int values = 0;
        if (scan(in, sounding.number, sounding.longitude, sounding.latitude, sounding.height, values) < 5 ||
            !readLevels(in, values, sounding.levels))
            break;
        result.soundings.push_back(std::move(sounding));
    }
    return result;
}

}  // namespace velmar::files
