#pragma once

#include <cstdint>

namespace velmar::rain {

/// A time as the number YYYYMMDDHH, so that later times are larger numbers.
using DateKey = std::int64_t;

constexpr DateKey dateKey(int year, int month, int day, int hour) {
    return ((DateKey{year} * 100 + month) * 100 + day) * 100 + hour;
}

/// The time a number of hours later. February has 29 days in every year: this is how accumulations name their
/// files. Only one day is carried: with steps longer than a day, hours above 23 remain.
DateKey stepDateKey(int stepHours, DateKey key);

}  // namespace velmar::rain
