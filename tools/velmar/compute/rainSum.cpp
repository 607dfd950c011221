#include "compute/rainSum.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>

#include "base/scanner.h"
#include "common/text.h"
#include "files/stationValues.h"
#include "rain/rainTable.h"
#include "read/gridFile.h"
#include "read/stationFile.h"

namespace velmar::tool {
namespace {

namespace fs = std::filesystem;
using rain::DateKey;

/// The file of a time: one whose name has a backslash in it may stand for it, on every platform.
std::string fileOf(const std::string& directory, DateKey time) {
    const std::string name = fmt::format("{:08}.000", time % 100000000);
    std::error_code ignored;
    const std::string withBackslash = directory + '\\' + name;
    return fs::exists(withBackslash, ignored) ? withBackslash : directory + '/' + name;
}

/// The times of rain files count 29 days in every February.
bool isDayOfNoCalendar(DateKey time) {
    const auto [year, month, day, hour] = partsOf(time);
    return month == 2 && day == 29 && !std::chrono::year(year).is_leap();
}

/// The stations of a file, with their numbers and heights.
std::vector<base::StationValue> stationsIn(const FileHead& head, std::size_t count) {
    base::TextScanner in(head.file.view());
    int elementCount = 0;
    int promised = 0;
    static_cast<void>(files::readStationValuesHeader(in));
    static_cast<void>(scan(in, elementCount, promised));
    std::vector<base::StationValue> stations(count);
    for (base::StationValue& station : stations) files::scanStationValue(in, station);
    return stations;
}

/// Adds a file to the table. Returns what the user should know about it; a Problem when it cannot be added up.
std::string addFile(const std::string& path, DateKey time, rain::RainTable& table) try {
    const FileHead head = readFileHead(path);
    if (head.kind.type != stationValuesType)
        throw Problem(fmt::format("it holds something else than station values (type {}): {} (type {})",
                                  stationValuesType, head.kind.name, head.kind.type));
    const StationFile file = readStationFile(head);
    if (file.elementCount != 1)
        throw Problem(fmt::format("its stations have {} values, not one", file.elementCount));
    table.add(stationsIn(head, file.stationCount()));
    if (file.stationCount() >= static_cast<std::size_t>(std::max(file.promised, 0))) return {};
    return fmt::format("the header of {} promises {} stations, but only {} can be read", path, file.promised,
                       file.stationCount());
} catch (const Problem& problem) {
    throw Problem(fmt::format(
        "the file of {}, {}, cannot be added: {}{}", rainTimeText(time), path, problem.what(),
        isDayOfNoCalendar(time) ? " (the times of rain files count 29 days in every February)" : ""));
}

RainStation roundedStation(const base::StationValue& station) {
    constexpr double parts = 1000;
    return {.number = station.number,
            .longitude = station.longitude,
            .latitude = station.latitude,
            .height = station.height,
            .total = std::round(static_cast<double>(station.value) * parts) / parts + 0.0};
}

}  // namespace

std::string rainTimeText(DateKey time) {
    const auto [year, month, day, hour] = partsOf(time);
    return fmt::format("{:04}-{:02}-{:02} {:02}:00", year, month, day, hour);
}

RainSum sumRain(const std::string& directory, const RainPeriod& span) {
    rain::RainTable table;
    RainSum sum{.span = span, .last = span.from, .files = {}, .notices = {}, .stations = {}};
    while (sum.last < span.to) {
        sum.last = rain::stepDateKey(span.stepHours, sum.last);
        sum.files.push_back(fileOf(directory, sum.last));
        const std::string notice = addFile(sum.files.back(), sum.last, table);
        if (!notice.empty()) sum.notices.push_back(notice);
    }
    if (sum.last != span.to)
        sum.notices.push_back(fmt::format("the steps do not end at {}: the last file is that of {}",
                                          rainTimeText(span.to), rainTimeText(sum.last)));
    if (table.stations().empty()) throw Problem("its files have no stations");
    std::ranges::transform(table.stations(), std::back_inserter(sum.stations), roundedStation);
    return sum;
}

}  // namespace velmar::tool
