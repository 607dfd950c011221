#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "describe/description.h"
#include "read/lineMap.h"

namespace velmar::tool {
namespace {

/// Adds the longitudes (axis 0) or the latitudes (axis 1) of a map that has points.
void addAxis(const LineMap& map, std::size_t axis, FileDescription& description) {
    float smallest = map.coordinates[axis];
    float largest = smallest;
    for (std::size_t k = axis; k < map.coordinates.size(); k += 2) {
        smallest = std::min(smallest, map.coordinates[k]);
        largest = std::max(largest, map.coordinates[k]);
    }
    description.addRange(axis == 0 ? "longitudes" : "latitudes", smallest, largest);
}

std::size_t countNames(const LineMap& map) {
    std::set<std::string_view> names;
    for (const LineMap::MapLine& line : map.lines)
        if (!line.name.empty()) names.insert(line.name);
    return names.size();
}

}  // namespace

void describeMap(const FileHead& head, FileDescription& description) {
    const LineMap map = readLineMap(head);
    description.notice = map.notice;
    const std::size_t points = map.coordinates.size() / 2;
    description.json["lines"] = map.lines.size();
    description.json["points"] = points;
    description.addLine("lines", fmt::format("{}, {} points", map.lines.size(), points));
    if (const std::size_t names = countNames(map); names > 0) {
        description.json["names"] = names;
        description.addLine("names", std::to_string(names));
    }
    if (map.coordinates.empty()) return;
    addAxis(map, 0, description);
    addAxis(map, 1, description);
}

}  // namespace velmar::tool
