#include "describe/stationInfo.h"

#include <fmt/ranges.h>

#include <algorithm>

#include "cli/text.h"
#include "describe/infoLines.h"
#include "describe/valueRange.h"
#include "read/stationElements.h"

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

ValueRange rangeOf(const std::vector<float>& values) {
    const auto [smallest, largest] = std::ranges::minmax(values);
    return {smallest, largest};
}

}  // namespace

void addStationsJson(const StationFile& file, Json& json) {
    if (file.hasTime()) json["start"] = startTimeText(file.field);
    json["level"] = file.field.level;
    json["levels"] = Json::array();
    for (const float level : file.levels) json["levels"].push_back(writtenNumber(level));
    json["stations"] = file.stationCount();
    json["promised"] = file.promised;
    if (file.stationCount() > 0) {
        json["longitudes"] = rangeJson(rangeOf(file.longitudes));
        json["latitudes"] = rangeJson(rangeOf(file.latitudes));
    }
    json["elements"] = Json::array();
    for (const auto& [element, count, smallest, largest] : rangesOf(file))
        json["elements"].push_back({{"element", element},
                                    {"stations", count},
                                    {"smallest", writtenNumber(smallest)},
                                    {"largest", writtenNumber(largest)}});
}

void addStationsText(const StationFile& file, std::string& text) {
    if (file.hasTime()) addLine(text, "start", startTimeText(file.field));
    if (file.field.level != 0) addLine(text, "level", levelText(file.field.level));
    const bool whole = file.stationCount() == static_cast<std::size_t>(std::max(file.promised, 0));
    addLine(text, "stations",
            fmt::format("{}{}", file.stationCount(),
                        whole ? "" : fmt::format(", but its header promises {}", file.promised)));
    if (file.stationCount() > 0) {
        addLine(text, "longitudes", rangeText(rangeOf(file.longitudes)));
        addLine(text, "latitudes", rangeText(rangeOf(file.latitudes)));
    }
    if (!file.levels.empty()) {
        std::vector<std::string> levels;
        for (const float level : file.levels) levels.push_back(plainNumber(level));
        addLine(text, "contours", fmt::format("{}", fmt::join(levels, ", ")));
    }
    for (const auto& [element, count, smallest, largest] : rangesOf(file)) {
        const std::string_view quantity = quantityOf(file.type, element);
        addLine(text, fmt::format("element {}", element),
                fmt::format("{} stations, {} to {}{}{}", count, plainNumber(smallest), plainNumber(largest),
                            quantity.empty() ? "" : "; by custom ", quantity));
    }
}

}  // namespace velmar::tool
