
#include <fmt/ranges.h>

#include <algorithm>

#include "common/text.h"
#include "describe/description.h"
#include "read/stationElements.h"
#include "read/stationFile.h"

namespace velmar::tool {
namespace {

/// An element that stations have a value of.
struct ElementRange {
    int element;
    std::size_t count;
    float smallest;
    float largest;
};

std::vector<ElementRange> rangesOf(const StationFile& file) {
    std::vector<ElementRange> ranges;
    if (file.stationCount() == 0) return ranges;
    for (int element = file.firstElement; element <= file.lastElement(); ++element) {
        const analysis::Stations stations = file.withValue(element);
        if (stations.values.empty()) continue;
        const auto [smallest, largest] = std::ranges::minmax(stations.values);
        ranges.push_back({element, stations.values.size(), smallest, largest});
    }
    return ranges;
}

void addAxis(std::string_view name, const std::vector<float>& degrees, FileDescription& description) {
    const auto [smallest, largest] = std::ranges::minmax(degrees);
    description.addRange(name, smallest, largest);
}

void addElements(const StationFile& file, FileDescription& description) {
    description.json["elements"] = Json::array();
    for (const auto& [element, count, smallest, largest] : rangesOf(file)) {
        description.json["elements"].push_back({{"element", element},
                                                {"stations", count},
                                                {"smallest", writtenNumber(smallest)},
                                                {"largest", writtenNumber(largest)}});
        const std::string_view quantity = quantityOf(file.type, element);
        description.addLine(
            fmt::format("element {}", element),
            fmt::format("{} stations, {} to {}{}{}", count, plainNumber(smallest), plainNumber(largest),
                        quantity.empty() ? "" : "; by custom ", quantity));
    }
}

/// Adds the levels that the file wants drawn.
void addLevels(const StationFile& file, FileDescription& description) {
    if (file.levels.empty()) return;
    std::vector<std::string> levels;
    for (const float level : file.levels) levels.push_back(plainNumber(level));
    description.addLine("contours", fmt::format("{}", fmt::join(levels, ", ")));
}

}  // namespace

void describeStations(const FileHead& head, FileDescription& description) {
    const StationFile file = readStationFile(head);
    Json& json = description.json;
    if (file.hasTime()) {
        json["start"] = startTimeText(file.field);
        description.addLine("start", startTimeText(file.field));
    }
    json["level"] = file.field.level;
    if (file.field.level != 0) description.addLine("level", levelText(file.field.level));
    json["levels"] = Json::array();
    for (const float level : file.levels) json["levels"].push_back(writtenNumber(level));
    json["stations"] = file.stationCount();
    json["promised"] = file.promised;
    const bool whole = file.stationCount() == static_cast<std::size_t>(std::max(file.promised, 0));
    description.addLine("stations",
                        fmt::format("{}{}", file.stationCount(),
                                    whole ? "" : fmt::format(", but its header promises {}", file.promised)));
    if (file.stationCount() > 0) {
        addAxis("longitudes", file.longitudes, description);
        addAxis("latitudes", file.latitudes, description);
    }
    addLevels(file, description);
    addElements(file, description);
}

}  // namespace velmar::tool
