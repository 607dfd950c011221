#include "read/soundingFile.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include "base/scanner.h"
#include "common/text.h"
#include "files/soundings.h"
#include "sounding/derive.h"

namespace velmar::tool {
namespace {

/// A value inside the range that it can have; files write 999, 9999 and the like for one that is missing.
std::optional<float> within(float value, float least, float most) {
    return value >= least && value <= most ? std::optional(value) : std::nullopt;
}

CheckedLevel levelOf(const base::SoundingLevel& level) {
    return {.pressure = level.pressure,
            .height = level.height == grid::missingInFiles ? std::nullopt : within(level.height, -1e3F, 6e4F),
            .temperature = within(level.temperature, -120, 70),
            .dewPoint = within(level.dewPoint, -120, 70),
            .windDirection = within(level.windDirection, 0, 360),
            .windSpeed = within(level.windSpeed, 0, 200)};
}

/// The library's freezing level. It takes the levels as they stand, so this holds only if they are in order and
/// nothing is missing in those that it goes through, up to the first frozen one.
std::optional<FreezingLevel> freezingLevelOf(const base::Sounding& sounding) {
    if (sounding.freezingPressure <= 0) return std::nullopt;
    if (!std::ranges::is_sorted(sounding.levels, std::greater{}, &base::SoundingLevel::pressure))
        return std::nullopt;
    for (const base::SoundingLevel& raw : sounding.levels) {
        const CheckedLevel level = levelOf(raw);
        if (!level.temperature || !level.height) return std::nullopt;
        if (*level.temperature <= 0) break;
    }
    return FreezingLevel{sounding.freezingHeight, sounding.freezingPressure};
}

CheckedSounding soundingOf(const base::Sounding& raw) {
    constexpr int highestPressure = 1200;
    CheckedSounding sounding{.number = raw.number,
                             .longitude = raw.longitude,
                             .latitude = raw.latitude,
                             .height = raw.height,
                             .levels = {},
                             .freezing = freezingLevelOf(raw)};
    std::ranges::transform(raw.levels, std::back_inserter(sounding.levels), levelOf);
    std::erase_if(sounding.levels, [](const CheckedLevel& level) {
        return level.pressure < 1 || level.pressure > highestPressure;
    });
    std::ranges::stable_sort(sounding.levels, std::greater{}, &CheckedLevel::pressure);
    return sounding;
}

/// Reads the date as the file has it: the library's takes all years of two digits for those from 2000 on.
void readHeader(const FileHead& head, CheckedSoundings& file) {
    base::TextScanner in(head.file.view());
    std::string_view keyword;
    std::string_view title;
    int type = 0;
    if (scan(in, keyword, type, title) < 3 ||
        scan(in, file.time.year, file.time.month, file.time.day, file.time.hour, file.promised) < 5)
        throw Problem(
            "its header cannot be read: year, month, day, hour and the number of soundings are expected "
            "behind "
            "the title");
    file.title = head.title;
}

}  // namespace

std::string CheckedSoundings::notice() const {
    if (promised <= 0 || soundings.size() == static_cast<std::size_t>(promised)) return {};
    return fmt::format("its header promises {} soundings, but only {} can be read", promised,
                       soundings.size());
}

CheckedSoundings readSoundingFile(const FileHead& head) {
    if (head.kind.content != FileContent::soundings)
        throw Problem(fmt::format("it holds something else than soundings (type {}): {} (type {})",
                                  soundingFileType, head.kind.name, head.kind.type));
    CheckedSoundings file{};
    readHeader(head, file);
    base::TextScanner in(head.file.view());
    sounding::StandardLevels standard;
    for (base::Sounding& raw : files::readSoundings(in).soundings) {
        sounding::derive(raw, standard);
        file.soundings.push_back(soundingOf(raw));
    }
    return file;
}

void keepStation(CheckedSoundings& file, int number) {
    std::vector<int> numbers;
    for (const CheckedSounding& sounding : file.soundings) numbers.push_back(sounding.number);
    std::erase_if(file.soundings, [&](const CheckedSounding& sounding) { return sounding.number != number; });
    if (file.soundings.empty())
        throw Problem(fmt::format("it has no sounding of station {}, but of: {}", number,
                                  numbers.empty() ? "none" : fmt::format("{}", fmt::join(numbers, ", "))));
}

}  // namespace velmar::tool
