#pragma once

#include <fmt/format.h>

#include <string>
#include <vector>

struct TestStation {
    double longitude;
    double latitude;
    double value;
};

/// A file of station values (type 3) of one value a station.
inline std::string stationValues(const std::vector<TestStation>& stations, const std::string& levels = "0") {
    std::string text =
        fmt::format("diamond 3 TEST\n2024 2 28 12 850 {}\n1 0 1\n100 20\n1 {}\n", levels, stations.size());
    int number = 100;
    for (const auto& [longitude, latitude, value] : stations)
        text += fmt::format("{} {} {} 250 {}\n", number++, longitude, latitude, value);
    return text;
}

/// A file of surface reports (type 1) with the value as field 20 and its negative as field 13; every other
/// report has two extra values.
inline std::string surfaceReports(const std::vector<TestStation>& stations) {
    std::string text = fmt::format("diamond 1 \xB5\xD8\xC3\xE6\n95 3 18 20 {}\n", stations.size());
    bool extra = false;
    for (const auto& [longitude, latitude, value] : stations) {
        text += fmt::format(
            "54511 {} {} 55 1 8 130 2.1 1017.8 9999 9999 9999 {}\n9999 9999 9999 -4.4 16 0 {} 0 0 ",
            longitude, latitude, -value, value);
        text += extra ? "1 2 0.6 -0.4\n" : "0 0\n";
        extra = !extra;
    }
    return text;
}
