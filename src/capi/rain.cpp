#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/messages.h"
#include "capi/barrier.h"
#include "files/file.h"
#include "files/stationValues.h"
#include "rain/dateKey.h"
#include "rain/rainTable.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

using base::TextScanner;
using rain::DateKey;
using Station = base::StationValue;

/// A span of time in steps of some hours.
struct RainSpan {
    DateKey start;  ///< not part of the sum
    DateKey end;
    int stepHours;
};

/// The four-digit year: years below 100 count from 2000 on.
int fullYear(int year) { return year < 100 ? year + 2000 : year; }

/// Whether the hours are those that accumulations of more than an hour start and end at.
bool areObservationHours(int startHour, int endHour) {
    constexpr std::array hours{2, 8, 14, 20};
    const auto isOne = [&](int hour) { return std::ranges::find(hours, hour) != hours.end(); };
    return (isOne(startHour) || (startHour == 5 && endHour == 5)) && (isOne(endHour) || endHour == 5);
}

/// The file of a time in a directory. On platforms where a backslash is no separator, a file with a backslash in its
/// name counts as well.
std::string fileNameOf(const std::string& directory, DateKey key) {
    const DateKey year = key / 1000000;
    std::array<char, 128> name{};
    std::snprintf(name.data(), name.size(), "%.2d%.2d%.2d%.2d.000",
                  static_cast<int>(year > 100 ? year % 100 : year), static_cast<int>(key / 10000 % 100),
                  static_cast<int>(key / 100 % 100), static_cast<int>(key % 100));
    std::string path = directory + '\\' + name.data();
    std::error_code error;
    if (std::filesystem::path::preferred_separator == '/' && !std::filesystem::exists(path, error))
        path[directory.size()] = '/';
    return path;
}

std::optional<std::vector<Station>> readRain(const std::string& path) {
    const std::optional<files::FileText> file = files::readWholeFile(path.c_str());
    if (!file) {
        std::fputs(base::messages::cannotOpenWindFile, stderr);
        return std::nullopt;
    }
    TextScanner in(file->view());
    base::Outcome<files::StationValuesHeader> header = files::readStationValuesHeader(in);
    if (!header || header->keyword != "diamond") return std::nullopt;
    int valuesPerStation = 0;
    int promised = 0;
    if (scan(in, valuesPerStation, promised) < 2 || valuesPerStation != 1) return std::nullopt;
    std::vector<Station> stations;
    const std::size_t most = in.recordsAtMost(promised, Station::fieldCount);
    stations.reserve(most);
    Station station{};
    while (stations.size() < most && files::scanStationValue(in, station) == Station::fieldCount)
        stations.push_back(station);
    return stations;
}

ResultBlock pack(std::span<const Station> stations) {
    const std::size_t size = 5 * stations.size() + 1;
    ResultBlock block = base::allocateFloats(size);
    BlockWriter out(block);
    out.appendCount(size);
    for (const Station& s : stations)
        out.append(std::array{static_cast<float>(s.number), s.longitude, s.latitude, s.height, s.value});
    return block;
}

/// Adds up the files of a directory as described for DiscreteAdd; null when one of them cannot be read, or no file has
/// a station.
ResultBlock accumulateRain(const char* directory, const RainSpan& span) {
    if (directory == nullptr || span.start >= span.end || span.stepHours < 1) return nullptr;
    rain::RainTable table;
    DateKey key = span.start;
    do {
        key = rain::stepDateKey(span.stepHours, key);
        const std::optional<std::vector<Station>> stations = readRain(fileNameOf(directory, key));
        if (!stations) return nullptr;
        table.add(*stations);
    } while (key < span.end);
    return table.stations().empty() ? nullptr : pack(table.stations());
}

}  // namespace
}  // namespace velmar::capi

using namespace velmar;
using namespace velmar::capi;
using rain::dateKey;

float* DiscreteAdd(int startYear, int startMonth, int startDay, int startHour, int endYear, int endMonth,
                   int endDay, int endHour, const char* directory, int stepHours) noexcept {
    if (stepHours != 1 && !areObservationHours(startHour, endHour)) return nullptr;
    return guarded<float*>(nullptr, [&] {
        const RainSpan span{dateKey(fullYear(startYear), startMonth, startDay, startHour),
                            dateKey(fullYear(endYear), endMonth, endDay, endHour), stepHours};
        return accumulateRain(directory, span).release();
    });
}
