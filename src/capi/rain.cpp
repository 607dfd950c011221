#include <array>
#include <cstdio>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/messages.h"
#include "capi/barrier.h"
#include "files/file.h"
#include "files/stationValues.h"
#include "rain/rainTable.h"
#include "rain/rainTimes.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

using base::StationValue;
using base::TextScanner;
using rain::DateKey;

/// The four-digit year: years below 100 count from 2000 on.
int fullYear(int year) { return year < 100 ? year + 2000 : year; }

std::optional<std::vector<StationValue>> readRain(const std::string& path) {
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
    std::vector<StationValue> stations;
    const std::size_t most = in.recordsAtMost(promised, StationValue::fieldCount);
    stations.reserve(most);
    StationValue station{};
    while (stations.size() < most && files::scanStationValue(in, station) == StationValue::fieldCount)
        stations.push_back(station);
    return stations;
}

ResultBlock pack(std::span<const StationValue> stations) {
    const std::size_t size = 5 * stations.size() + 1;
    ResultBlock block = base::allocateFloats(size);
    BlockWriter out(block);
    out.appendCount(size);
    for (const StationValue& s : stations)
        out.append(std::array{static_cast<float>(s.number), s.longitude, s.latitude, s.height, s.value});
    return block;
}

/// Adds up the files of a directory as described for DiscreteAdd; null when one of them cannot be read, or no file has
/// a station.
ResultBlock accumulateRain(const char* directory, const rain::RainSpan& span) {
    if (directory == nullptr || span.start >= span.end || span.stepHours < 1) return nullptr;
    rain::RainTable table;
    DateKey key = span.start;
    do {
        key = rain::stepDateKey(span.stepHours, key);
        const std::optional<std::vector<StationValue>> stations = readRain(rain::rainFileOf(directory, key));
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
    if (stepHours != 1 && !(rain::mayStartAt(startHour, endHour) && rain::mayEndAt(endHour))) return nullptr;
    return guarded<float*>(nullptr, [&] {
        const rain::RainSpan span{dateKey(fullYear(startYear), startMonth, startDay, startHour),
                                  dateKey(fullYear(endYear), endMonth, endDay, endHour), stepHours};
        return accumulateRain(directory, span).release();
    });
}
