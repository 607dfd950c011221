#include "rain/dateKey.h"

namespace velmar::rain {
namespace {

int lengthOfMonth(DateKey month) {
    constexpr int lengths[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month >= 1 && month <= 12 ? lengths[month - 1] : 31;
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

}  // namespace velmar::rain
