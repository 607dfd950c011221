#include "rain/rainTimes.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>

namespace velmar::rain {
namespace {

int lengthOfMonth(DateKey month) {
    constexpr int lengths[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month >= 1 && month <= 12 ? lengths[month - 1] : 31;
}

/// The hours that accumulations start and end at; 5 h is a special case of theirs.
bool isMainHour(int hour) {
    constexpr std::array hours{2, 8, 14, 20};
    return std::ranges::find(hours, hour) != hours.end();
}

/// The last two digits of the year, then month, day and hour.
std::array<char, 128> nameOf(DateKey key) {
    const DateKey year = key / 1000000;
    std::array<char, 128> name{};
    std::snprintf(name.data(), name.size(), "%.2d%.2d%.2d%.2d.000",
                  static_cast<int>(year > 100 ? year % 100 : year), static_cast<int>(key / 10000 % 100),
                  static_cast<int>(key / 100 % 100), static_cast<int>(key % 100));
    return name;
}

}  // namespace

DateKey stepDateKey(int stepHours, DateKey key) {
    constexpr DateKey nextDay = 100;
    constexpr DateKey nextMonth = 100 * nextDay;
    constexpr DateKey nextYear = 100 * nextMonth;
    const DateKey hour = key % 100 + stepHours;
    if (hour < 24) return key + stepHours;
    const DateKey day = key / nextDay % 100;
    const DateKey month = key / nextMonth % 100;
    const DateKey midnight = key - key % nextDay;
    if (day + 1 <= lengthOfMonth(month)) return midnight + nextDay + hour - 24;
    const DateKey firstOfMonth = key - key % nextMonth + nextDay;
    if (month + 1 < 13) return firstOfMonth + nextMonth + hour - 24;
    return key - key % nextYear + nextYear + nextMonth + nextDay + hour - 24;
}

bool mayEndAt(int endHour) { return isMainHour(endHour) || endHour == 5; }

bool mayStartAt(int startHour, int endHour) {
    return isMainHour(startHour) || (startHour == 5 && endHour == 5);
}

std::string rainFileOf(const std::string& directory, DateKey key) {
    std::string path = directory + '\\' + nameOf(key).data();
    std::error_code error;
    if (std::filesystem::path::preferred_separator == '/' && !std::filesystem::exists(path, error))
        path[directory.size()] = '/';
    return path;
}

}  // namespace velmar::rain
