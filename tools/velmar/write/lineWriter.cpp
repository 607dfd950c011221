#include "write/lineWriter.h"

#include <fmt/format.h>

#include <cstdint>

#include "common/text.h"
#include "write/geoJson.h"

namespace velmar::tool {
namespace {

constexpr double nanosecondsPerPoint = 100;

double nanosecondsPerLine(const ContourSet& set) {
    const auto lines = static_cast<double>(set.lines.size());
    double points = 0;
    for (const Isoline& line : set.lines) points += static_cast<double>(line.size());
    return lines > 0 ? nanosecondsPerPoint * points / lines : 0;
}

void addLine(const Isoline& line, FeatureCollection& features) {
    const Json properties{{"value", writtenNumber(line.value)}, {"closed", line.closed()}};
    if (line.size() == 1)
        features.add(properties, "Point", [&](std::string& text) { appendPosition(text, line[0]); });
    else
        features.add(properties, "LineString", [&](std::string& text) { appendPositions(text, line); });
}

void addTriangle(const StationContours& contours, const triangles::Triangle& triangle,
                 FeatureCollection& features) {
    const analysis::Stations& stations = contours.stations;
    features.add({{"kind", "triangle"}, {"stations", triangle}}, "Polygon", [&](std::string& text) {
        text += "[[";
        for (const std::uint32_t k : triangle) {
            appendPosition(text, {stations.longitudes[k], stations.latitudes[k]});
            text += ',';
        }
        appendPosition(text, {stations.longitudes[triangle[0]], stations.latitudes[triangle[0]]});
        text += "]]";
    });
}

}  // namespace

std::string geoJson(const ContourSet& set) {
    return collectFeatures(
               set.lines.size(), nanosecondsPerLine(set),
               [&](std::size_t k, FeatureCollection& features) { addLine(set.lines[k], features); })
        .text();
}

std::string commaSeparated(const ContourSet& set) {
    const auto runs = base::collectWork(
        set.lines.size(), nanosecondsPerLine(set), [&](std::size_t first, std::size_t last) {
            std::string text;
            for (std::size_t number = first + 1; number <= last; ++number) {
                const Isoline& line = set.lines[number - 1];
                const std::string start = fmt::format("{},{},{},", number, line.value, line.closed());
                for (std::size_t k = 0; k < line.size(); ++k) {
                    text += start;
                    appendNumber(text, line[k].longitude);
                    text += ',';
                    appendNumber(text, line[k].latitude);
                    text += '\n';
                }
            }
            return text;
        });
    std::string text = "line,value,closed,longitude,latitude\n";
    for (const auto& [first, rows] : runs) text += rows;
    return text;
}

std::string geoJson(const StationContours& contours) {
    FeatureCollection features;
    for (const Isoline& line : contours.lines.lines)
        features.add({{"kind", "line"}, {"value", writtenNumber(line.value)}}, "LineString",
                     [&](std::string& text) { appendPositions(text, line); });
    for (const triangles::Triangle& triangle : contours.triangles) addTriangle(contours, triangle, features);
    return features.text();
}

}  // namespace velmar::tool
