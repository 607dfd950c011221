#include "write/lineWriter.h"

#include <fmt/format.h>

#include <iterator>

#include "cli/text.h"
#include "write/geoJson.h"

namespace velmar::tool {
namespace {

Json geometry(const Isoline& line) {
    if (line.size() == 1) return {{"type", "Point"}, {"coordinates", positionJson(line[0])}};
    return {{"type", "LineString"}, {"coordinates", positionsJson(line)}};
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

}  // namespace velmar::tool
