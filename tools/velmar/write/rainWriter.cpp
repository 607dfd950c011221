#include "write/rainWriter.h"

#include <fmt/format.h>

#include <iterator>

#include "write/geoJson.h"

namespace velmar::tool {
namespace {

std::string spanText(const RainSum& sum) {
    return fmt::format("rain after {} up to {}", rainTimeText(sum.span.start), rainTimeText(sum.last));
}

}  // namespace

std::string rainText(const RainSum& sum) {
    std::string text =
        fmt::format("{}, {} files, {} stations\n", spanText(sum), sum.files.size(), sum.stations.size());
    const auto out = std::back_inserter(text);
    fmt::format_to(out, "{:>10}{:>11}{:>11}{:>10}{:>10}\n", "station", "longitude", "latitude", "height",
                   "rain");
    for (const auto& [number, longitude, latitude, height, total] : sum.stations)
        fmt::format_to(out, "{:>10}{:>11}{:>11}{:>10}{:>10}\n", number, longitude, latitude, height, total);
    return text;
}

std::string commaSeparated(const RainSum& sum) {
    std::string text = "station,longitude,latitude,height,rain\n";
    for (const auto& [number, longitude, latitude, height, total] : sum.stations)
        fmt::format_to(std::back_inserter(text), "{},{},{},{},{}\n", number, longitude, latitude, height,
                       total);
    return text;
}

std::string geoJson(const RainSum& sum) {
    FeatureCollection collection;
    for (const RainStation& station : sum.stations)
        collection.add({{"station", station.number}, {"height", station.height}, {"rain", station.total}},
                       "Point", [&](std::string& text) {
                           appendPosition(text, {station.longitude, station.latitude});
                       });
    return collection.text();
}

std::string stationFileText(const RainSum& sum) {
    const auto [year, month, day, hour] = partsOf(sum.last);
    // No contour levels, no boundary, one value a station.
    std::string text = fmt::format("diamond {} RAIN_{}_{}\n{} {} {} {} 0 0\n0 0 0\n1 {}\n", stationValuesType,
                                   sum.span.start, sum.last, year, month, day, hour, sum.stations.size());
    for (const auto& [number, longitude, latitude, height, total] : sum.stations)
        fmt::format_to(std::back_inserter(text), "{} {} {} {} {}\n", number, longitude, latitude, height,
                       total);
    return text;
}

StationFile stationFileOf(const RainSum& sum) {
    StationFile file{};
    file.title = spanText(sum);
    const auto [year, month, day, hour] = partsOf(sum.last);
    file.field.year = year;
    file.field.month = month;
    file.field.day = day;
    file.field.hour = hour;
    file.promised = static_cast<int>(sum.stations.size());
    file.firstElement = file.elementCount = file.customaryElement = 1;
    for (const RainStation& station : sum.stations) {
        file.longitudes.push_back(station.longitude);
        file.latitudes.push_back(station.latitude);
        file.values.push_back(static_cast<float>(station.total));
    }
    return file;
}

}  // namespace velmar::tool
