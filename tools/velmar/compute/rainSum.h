#pragma once

#include <string>
#include <vector>

#include "rain/rainTimes.h"

namespace velmar::tool {

struct TimeParts {
    int year;
    int month;
    int day;
    int hour;
};

constexpr TimeParts partsOf(rain::DateKey time) {
    return {static_cast<int>(time / 1000000), static_cast<int>(time / 10000 % 100),
            static_cast<int>(time / 100 % 100), static_cast<int>(time % 100)};
}

struct RainPeriod {
    rain::DateKey from;  ///< not part of the sum
    rain::DateKey to;
    int stepHours;
};

struct RainStation {
    long long number;
    float longitude;
    float latitude;
    float height;
    double total;  ///< in the unit of the files, rounded to thousandths; 0 also where no file has a value
};

struct RainSum {
    RainPeriod span;
    rain::DateKey last;  ///< the time of the last file: after the end when the steps pass over that
    std::vector<std::string> files;
    std::vector<std::string> notices;  ///< what the user should know about the files
    std::vector<RainStation> stations;
};

/// "2012-02-26 20:00"
std::string rainTimeText(rain::DateKey time);

/// Adds up the rain files of a directory; a Problem that names the file and what is wrong when that fails.
RainSum sumRain(const std::string& directory, const RainPeriod& span);

}  // namespace velmar::tool
