#pragma once

#include <cstdint>

namespace velmar::rain {

/// A time as the number YYYYMMDDHH, so that later times are larger numbers.
using DateKey = std::int64_t;

constexpr DateKey dateKey(int year, int month, int day, int hour) {
    return ((DateKey{year} * 100 + month) * 100 + day) * 100 + hour;
}

/// The time so many hours later. February has 29 days in every year: the times of an accumulation have always
/// been counted so. Only one day is carried: hours above 23 stay where the step is longer than a day.
DateKey stepDateKey(int stepHours, DateKey key);

}  // namespace velmar::rain
