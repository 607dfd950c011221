#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "describe/description.h"
#include "read/lineMap.h"

namespace velmar::tool {
namespace {

/// Adds the longitudes or the latitudes of a map that has points.
void addAxis(const LineMap& map, std::string_view name, float base::LonLat::*axis,
             FileDescription& description) {
    float smallest = map.points.front().*axis;
    float largest = smallest;
    for (const base::LonLat& point : map.points) {
        smallest = std::min(smallest, point.*axis);
        largest = std::max(largest, point.*axis);
    }
    description.addRange(name, smallest, largest);
}

std::size_t countNames(const LineMap& map) {
    std::set<std::string_view> names;
    for (const LineMap::DrawnLine& line : map.lines)
        if (!line.name.empty()) names.insert(line.name);
    return names.size();
}

}  // namespace

void describeMap(const FileHead& head, FileDescription& description) {
    const LineMap map = readLineMap(head);
    description.notice = map.notice;
    const std::size_t points = map.points.size();
    description.json["lines"] = map.lines.size();
    description.json["points"] = points;
    description.addLine("lines", fmt::format("{}, {} points", map.lines.size(), points));
    if (const std::size_t names = countNames(map); names > 0) {
        description.json["names"] = names;
        description.addLine("names", std::to_string(names));
    }
    if (map.points.empty()) return;
    addAxis(map, "longitudes", &base::LonLat::longitude, description);
    addAxis(map, "latitudes", &base::LonLat::latitude, description);
}

}  // namespace velmar::tool
