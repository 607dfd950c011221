#include "write/lineWriter.h"

#include <fmt/format.h>

#include <cstdint>
#include <iterator>

#include "common/text.h"
#include "write/geoJson.h"

namespace velmar::tool {
namespace {

Json geometry(const Isoline& line) {
    if (line.size() == 1) return {{"type", "Point"}, {"coordinates", positionJson(line[0])}};
    return {{"type", "LineString"}, {"coordinates", positionsJson(line)}};
}

Json triangleJson(const StationContours& contours, const triangles::Triangle& triangle) {
    Json ring = Json::array();
    for (const std::uint32_t k : {triangle[0], triangle[1], triangle[2], triangle[0]})
        ring.push_back(positionJson({contours.stations.longitudes[k], contours.stations.latitudes[k]}));
    return {{"type", "Polygon"}, {"coordinates", Json::array({ring})}};
}

}  // namespace

std::string geoJson(const ContourSet& set) {
    FeatureCollection collection;
    for (const Isoline& line : set.lines)
        collection.add({{"value", writtenNumber(line.value)}, {"closed", line.closed()}}, geometry(line));
    return collection.text();
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

std::string geoJson(const StationContours& contours) {
    FeatureCollection collection;
    for (const Isoline& line : contours.lines.lines)
        collection.add({{"kind", "line"}, {"value", writtenNumber(line.value)}},
                       {{"type", "LineString"}, {"coordinates", positionsJson(line)}});
    for (const triangles::Triangle& triangle : contours.triangles)
        collection.add({{"kind", "triangle"}, {"stations", triangle}}, triangleJson(contours, triangle));
    return collection.text();
}

}  // namespace velmar::tool
