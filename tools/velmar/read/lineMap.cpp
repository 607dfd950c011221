#include "read/lineMap.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "base/scanner.h"
#include "common/text.h"
#include "files/mapFile.h"
#include "files/polyline.h"
#include "files/regionFile.h"

namespace velmar::tool {
namespace {

constexpr int mapFileType = 9;
constexpr double circle = 360;

std::string breakOff(const LineMap& map, const char* what) {
    return fmt::format("the file breaks off: {} {} of it can be read", map.lines.size(), what);
}

std::vector<float> coordinatesOf(const std::vector<base::LonLat>& points) {
    std::vector<float> coordinates;
    coordinates.reserve(2 * points.size());
    for (const auto& [longitude, latitude] : points)
        coordinates.insert(coordinates.end(), {longitude, latitude});
    return coordinates;
}

void readMap(const FileHead& head, LineMap& map) {
    base::TextScanner in(head.file.view());
    const auto form = files::readMapHead(in);
    if (!form) throw Problem("its header cannot be read: ten integers are expected in front of the lines");
    files::MapLines lines;
    const bool whole = files::readMapLines(in, *form, lines, nullptr);
    for (const files::MapLine& line : lines.runs)
        map.lines.push_back({line.firstPoint, line.pointCount, line.attribute1, line.attribute2, {}});
    map.coordinates = coordinatesOf(lines.points);
    if (!whole) map.notice = breakOff(map, "lines");
}

void readLine(const FileHead& head, LineMap& map) {
    const auto kind = head.kind.type == 780 ? files::PolylineKind::type780 : files::PolylineKind::type777;
    std::optional<files::Polyline> line = files::readPolyline(head.file.view(), kind);
    if (!line) throw Problem("its header or its points cannot be read");
    map.coordinates = coordinatesOf(line->points);
    map.lines.push_back({0, map.coordinates.size() / 2, 0, 0, {}});
}

void readRegions(const FileHead& head, LineMap& map) {
    base::TextScanner in(head.file.view());
    std::optional<base::NamedOutlines> regions = files::readRegions(in);
    if (!regions) throw Problem("its header cannot be read");
    for (const base::NamedOutline& outline : regions->runs)
        map.lines.push_back(
            {outline.firstPoint, outline.pointCount, 0, 0, gbkToUtf8(regions->names.data() + outline.name)});
    map.coordinates = coordinatesOf(regions->points);
    if (!regions->runs.empty() && !regions->runs.back().isWhole) map.notice = breakOff(map, "regions");
}

/// The longitudes of the points on the globe, from 0 to 360.
std::vector<double> longitudesOf(const LineMap& map) {
    std::vector<double> longitudes;
    longitudes.reserve(map.coordinates.size() / 2);
    for (std::size_t k = 0; k < map.coordinates.size(); k += 2) {
        const double longitude = map.coordinates[k];
        if (std::fabs(longitude) <= 2 * circle && std::fabs(map.coordinates[k + 1]) <= 90)
            longitudes.push_back(longitude - circle * std::floor(longitude / circle));
    }
    return longitudes;
}

/// What is left of the circle without its widest gap.
LongitudeRange withoutGap(std::vector<double> longitudes) {
    std::ranges::sort(longitudes);
    double widest = longitudes.front() + circle - longitudes.back();
    LongitudeRange range{longitudes.front(), longitudes.back()};
    for (std::size_t k = 1; k < longitudes.size(); ++k) {
        const double gap = longitudes[k] - longitudes[k - 1];
        if (gap <= widest) continue;
        widest = gap;
        range = {longitudes[k] - circle, longitudes[k - 1]};
    }
    return range;
}

}  // namespace

LineMap readLineMap(const FileHead& head) {
    if (head.kind.content != FileContent::mapLines)
        throw Problem(
            fmt::format("it holds no lines of a map: {} (type {})", head.kind.name, head.kind.type));
    LineMap map{};
    map.title = head.title;
    if (head.kind.type == mapFileType)
        readMap(head, map);
    else if (head.kind.type == regionFileType)
        readRegions(head, map);
    else
        readLine(head, map);
    if (map.lines.empty()) throw Problem("no line of it can be read");
    return map;
}

GeoBox boundsOf(const LineMap& map) {
    std::vector<double> longitudes = longitudesOf(map);
    if (longitudes.empty()) throw Problem("none of its points is on the globe");
    double south = 90;
    double north = -90;
    for (std::size_t k = 1; k < map.coordinates.size(); k += 2) {
        const double latitude = map.coordinates[k];
        if (!(std::fabs(latitude) <= 90)) continue;
        south = std::min(south, latitude);
        north = std::max(north, latitude);
    }
    const auto [west, east] = withoutGap(std::move(longitudes));
    const double margin = std::max(0.03 * std::max(east - west, north - south), 0.1);
    constexpr double wholeCircle = 350;
    const bool isGlobal = east - west + 2 * margin > wholeCircle;
    return {isGlobal ? -180 : west - margin, isGlobal ? 180 : east + margin, std::max(south - margin, -90.0),
            std::min(north + margin, 90.0)};
}

}  // namespace velmar::tool
