#include "files/stationValues.h"

#include <cstddef>

namespace velmar::files {

using base::Failure;
using base::Outcome;
using base::TextScanner;

namespace {

/// Reads a list that begins with its number of entries; a negative number counts as 0.
bool readEntries(TextScanner& in, int entries, std::size_t numbersEach, std::vector<float>& list) {
    const std::size_t count = entries < 0 ? 0 : static_cast<std::size_t>(entries) * numbersEach;
    if (!in.mayHold(count)) return false;
    list.resize(count);
    return in.read(list) == count;
}

}  // namespace

Outcome<StationValuesHeader> readStationValuesHeader(TextScanner& in) {
    StationValuesHeader header{};
    if (scan(in, header.keyword, header.type, header.title) < 3) return Failure{-2};
    if (header.type != 3) return Failure{-3};
    int levelCount = 0;
    if (scan(in, header.year, header.month, header.day, header.hour, header.level, levelCount) < 6)
        return Failure{-4};
    if (!readEntries(in, levelCount, 1, header.contourLevels)) return Failure{-5};
    int boundaryCount = 0;
    if (scan(in, header.smoothing, header.boldValue, boundaryCount) < 3) return Failure{-6};
    if (!readEntries(in, boundaryCount, 2, header.boundary)) return Failure{-7};
    return header;
}

int scanStationValue(TextScanner& in, base::StationValue& station) {
    return scan(in, station.number, station.longitude, station.latitude, station.height, station.value);
}

}  // namespace velmar::files
