#include "lineWriter.h"

#include <fmt/format.h>

#include <iterator>
#include <nlohmann/json.hpp>

#include "text.h"

namespace velmar::tool {
namespace {

using Json = nlohmann::ordered_json;

Json position(GeoPoint point) {
    return Json::array({writtenNumber(point.longitude), writtenNumber(point.latitude)});
}

Json geometry(const Isoline& line) {
    if (line.size() == 1) return {{"type", "Point"}, {"coordinates", position(line[0])}};
    Json positions = Json::array();
    for (std::size_t k = 0; k < line.size(); ++k) positions.push_back(position(line[k]));
    return {{"type", "LineString"}, {"coordinates", std::move(positions)}};
}

}  // namespace

std::string geoJson(const ContourSet& set) {
    std::string text = "{\"type\":\"FeatureCollection\",\"features\":[";
    const char* separator = "\n";
    for (const Isoline& line : set.lines) {
        const Json feature{{"type", "Feature"},
                           {"properties", {{"value", writtenNumber(line.value)}, {"closed", line.closed()}}},
                           {"geometry", geometry(line)}};
        text += separator + feature.dump();
        separator = ",\n";
    }
    return text + "\n]}\n";
}

std::string commaSeparated(const ContourSet& set) {
    std::string text = "line,value,closed,longitude,latitude\n";
    std::size_t number = 0;
    for (const Isoline& line : set.lines) {
        const std::string start = fmt::format("{},{},{}", ++number, line.value, line.closed());
        for (std::size_t k = 0; k < line.size(); ++k)
            fmt::format_to(std::back_inserter(text), "{},{},{}\n", start, line[k].longitude,
                           line[k].latitude);
    }
    return text;
}

}  // namespace velmar::tool
