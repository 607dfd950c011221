#pragma once

#include <cstdint>
#include <string>

namespace velmar::rain {

/// A time as the number YYYYMMDDHH, so that later times are larger numbers.
using DateKey = std::int64_t;

constexpr DateKey dateKey(int year, int month, int day, int hour) {
    return ((DateKey{year} * 100 + month) * 100 + day) * 100 + hour;
}

/// The time a number of hours later. February has 29 days in every year: this is how accumulations name their
/// files. Only one day is carried: with steps longer than a day, hours above 23 remain.
DateKey stepDateKey(int stepHours, DateKey key);

/// A span of time in steps of some hours.
struct RainSpan {
    DateKey start;  ///< not part of the sum
    DateKey end;
    int stepHours;
};

/// Whether accumulations with steps of more than an hour may end at this hour: 2, 5, 8, 14 or 20 h.
bool mayEndAt(int endHour);

/// Whether they may start at this hour: 2, 8, 14 or 20 h, or 5 h where they end at 5 h too.
bool mayStartAt(int startHour, int endHour);

/// The file of a time in a directory. It is looked for behind a backslash; where a backslash separates nothing and there
/// is no such file, it is the one behind a slash.
std::string rainFileOf(const std::string& directory, DateKey key);

}  // namespace velmar::rain
