#include "compute/triangles.h"

#include <fmt/format.h>

#include <cstdint>

#include "cli/problem.h"
#include "cli/text.h"
#include "compute/analysisGrid.h"
#include "compute/blockReader.h"
#include "write/geoJson.h"

namespace velmar::tool {
namespace {

constexpr std::size_t mostLevels = 49;

grid::Lattice latticeOf(const analysis::StationView& stations) {
    const Bounds bounds = boundsRound(stations);
    // Points of lines lie as they come, to hundredths of a degree and less.
    constexpr float step = 0.01F;
    return {static_cast<float>(bounds.west),  static_cast<float>(bounds.east),  step,
            static_cast<float>(bounds.south), static_cast<float>(bounds.north), step};
}

/// The library moves values off the levels, so it gets a copy.
Block linesOf(const analysis::Stations& stations, const std::vector<float>& levels) {
    constexpr int levelList = 2;
    std::vector<float> values = stations.values;
    const std::intptr_t address =
        SanJiao(stations.longitudes.data(), stations.latitudes.data(), values.data(), levels.data(),
                static_cast<int>(values.size()), levelList, 0, 0, static_cast<int>(levels.size()));
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the export hands out an address as a number.
    return Block(reinterpret_cast<float*>(address));
}

Json triangleJson(const StationContours& contours, const triangles::Triangle& triangle) {
    Json ring = Json::array();
    for (const std::uint32_t k : {triangle[0], triangle[1], triangle[2], triangle[0]})
        ring.push_back(positionJson({contours.stations.longitudes[k], contours.stations.latitudes[k]}));
    return {{"type", "Polygon"}, {"coordinates", Json::array({ring})}};
}

}  // namespace

StationContours contourStations(const analysis::Stations& stations, const std::vector<float>& levels) {
    if (levels.size() > mostLevels)
        throw Problem(fmt::format("{} levels are too many: {} at most can be drawn over triangles",
                                  levels.size(), mostLevels));
    StationContours result{};
    ContourSet& set = result.lines;
    set.lattice = latticeOf(stations.view());
    set.refinement = {1, 1};
    set.levels = levels;
    result.stations = broughtTo(set.lattice, stations.view());
    const analysis::Stations& placed = result.stations;
    result.triangles = triangles::growNetwork({placed.longitudes, placed.latitudes, placed.values});
    if (result.triangles.empty())
        throw Problem(
            "its stations make no triangle: one more than 2 degrees off the line from the first to its "
            "nearest neighbour is needed");
    set.block = linesOf(placed, levels);
    if (set.block == nullptr) return result;
    constexpr float mostExact = 1 << 24;  // counts travel as floats
    if (set.block[0] >= mostExact) throw Problem("it gives too many points of lines");
    BlockReader in(set.block.get() + 1);
    for (std::size_t left = static_cast<std::size_t>(set.block[0]) - 1; left > 0;) {
        const std::size_t points = in.count();
        const float level = in.value();
        set.lines.push_back({{in.values(2 * points)}, level});
        left -= 2 + 2 * points;
    }
    return result;
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
