#pragma once

#include <fmt/format.h>

#include <string>
#include <vector>

/// A level of a sounding: hPa, height, temperature, dew point, direction and speed of the wind.
using TestLevel = std::vector<int>;

struct TestSounding {
    int number;
    double latitude;
    std::vector<TestLevel> levels;
};

/// A file of soundings (type 5) at longitude 100 and height 50.
inline std::string soundingFile(const std::vector<TestSounding>& soundings,
                                const std::string& date = "2024 2 28 12") {
    std::string text = fmt::format("diamond 5 TEST {} {}\n", date, soundings.size());
    for (const auto& [number, latitude, levels] : soundings) {
        text += fmt::format("{} 100 {} 50 {}\n", number, latitude, 6 * levels.size());
        for (const TestLevel& level : levels) {
            for (const int value : level) text += fmt::format("{} ", value);
            text += "\n";
        }
    }
    return text;
}
