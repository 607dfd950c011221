#include "describe/mapInfo.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "describe/infoLines.h"
#include "describe/valueRange.h"

namespace velmar::tool {
namespace {

/// Of the longitudes (axis 0) or the latitudes (axis 1); there are points.
ValueRange rangeOf(const LineMap& map, std::size_t axis) {
    ValueRange range{map.coordinates[axis], map.coordinates[axis]};
    for (std::size_t k = axis; k < map.coordinates.size(); k += 2)
        range = {std::min(range.smallest, map.coordinates[k]), std::max(range.largest, map.coordinates[k])};
    return range;
}

std::size_t countNames(const LineMap& map) {
    std::set<std::string_view> names;
    for (const LineMap::Line& line : map.lines)
        if (!line.name.empty()) names.insert(line.name);
    return names.size();
}

}  // namespace

void addMapJson(const LineMap& map, Json& json) {
    json["lines"] = map.lines.size();
    json["points"] = map.coordinates.size() / 2;
    if (const std::size_t names = countNames(map); names > 0) json["names"] = names;
    if (map.coordinates.empty()) return;
    json["longitudes"] = rangeJson(rangeOf(map, 0));
    json["latitudes"] = rangeJson(rangeOf(map, 1));
}

void addMapText(const LineMap& map, std::string& text) {
    addLine(text, "lines", fmt::format("{}, {} points", map.lines.size(), map.coordinates.size() / 2));
    if (const std::size_t names = countNames(map); names > 0) addLine(text, "names", std::to_string(names));
    if (map.coordinates.empty()) return;
    addLine(text, "longitudes", rangeText(rangeOf(map, 0)));
    addLine(text, "latitudes", rangeText(rangeOf(map, 1)));
}

}  // namespace velmar::tool
