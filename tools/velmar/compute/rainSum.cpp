#include "compute/rainSum.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>

#include "cli/problem.h"
#include "compute/blockReader.h"
#include "read/gridFile.h"
#include "read/stationFile.h"

namespace velmar::tool {
namespace {

namespace fs = std::filesystem;
using rain::DateKey;

/// The file that the library reads for a time: it tries a backslash first, on every platform.
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

/// What the user should know about a file; a Problem when it cannot be added up.
std::string inspect(const std::string& path, DateKey time) try {
    const FileHead head = readFileHead(path);
    if (head.kind.type != stationValuesType)
        throw Problem(fmt::format("it holds something else than station values (type {}): {} (type {})",
                                  stationValuesType, head.kind.name, head.kind.type));
    const StationFile file = readStationFile(head);
    if (file.elementCount != 1)
        throw Problem(fmt::format("its stations have {} values, not one", file.elementCount));
    if (file.stationCount() >= static_cast<std::size_t>(std::max(file.promised, 0))) return {};
    return fmt::format("the header of {} promises {} stations, but only {} can be read", path, file.promised,
                       file.stationCount());
} catch (const Problem& problem) {
    throw Problem(fmt::format(
        "the file of {}, {}, cannot be added: {}{}", rainTimeText(time), path, problem.what(),
        isDayOfNoCalendar(time) ? " (the times of rain files count 29 days in every February)" : ""));
}

std::vector<RainStation> stationsOf(const Block& block) {
    constexpr std::size_t fields = 5;
    constexpr double parts = 1000;
    BlockReader in(block.get());
    std::vector<RainStation> stations((in.count() - 1) / fields);
    for (RainStation& station : stations) {
        station.number = std::llround(in.value());
        station.longitude = in.value();
        station.latitude = in.value();
        station.height = in.value();
        station.total = std::round(static_cast<double>(in.value()) * parts) / parts + 0.0;
    }
    return stations;
}

}  // namespace

std::string rainTimeText(DateKey time) {
    const auto [year, month, day, hour] = partsOf(time);
    return fmt::format("{:04}-{:02}-{:02} {:02}:00", year, month, day, hour);
}

RainSum sumRain(const std::string& directory, const RainSpan& span) {
    RainSum sum{.span = span, .last = span.from, .files = {}, .notices = {}, .stations = {}};
    while (sum.last < span.to) {
        sum.last = rain::stepDateKey(span.stepHours, sum.last);
        sum.files.push_back(fileOf(directory, sum.last));
        const std::string notice = inspect(sum.files.back(), sum.last);
        if (!notice.empty()) sum.notices.push_back(notice);
    }
    if (sum.last != span.to)
        sum.notices.push_back(fmt::format("the steps do not end at {}: the last file is that of {}",
                                          rainTimeText(span.to), rainTimeText(sum.last)));
    const TimeParts from = partsOf(span.from);
    const TimeParts to = partsOf(span.to);
    const Block block(DiscreteAdd(from.year, from.month, from.day, from.hour, to.year, to.month, to.day,
                                  to.hour, directory.c_str(), span.stepHours));
    if (!block) throw Problem("its files have no stations, or there is not enough memory for them");
    sum.stations = stationsOf(block);
    return sum;
}

}  // namespace velmar::tool
