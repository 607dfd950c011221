#include "compute/triangles.h"

#include <fmt/format.h>

#include <cstdint>

#include "common/text.h"
#include "compute/analysisGrid.h"
#include "triangles/stationContours.h"

namespace velmar::tool {
namespace {

constexpr std::size_t mostLevels = 49;

grid::Lattice latticeOf(const analysis::StationView& stations) {
    const GeoBox bounds = boundsRound(stations);
    // Points of lines lie as they come, to hundredths of a degree and less.
    constexpr float step = 0.01F;
    return {static_cast<float>(bounds.west),  static_cast<float>(bounds.east),  step,
            static_cast<float>(bounds.south), static_cast<float>(bounds.north), step};
}

/// Moves the values that lie almost on a level off it, so it takes a copy of them.
void trace(const analysis::Stations& stations, ContourSet& set) {
    std::vector<float> values = stations.values;
    triangles::LevelTable table;
    const triangles::StationLines traced = triangles::contourStations(
        stations.longitudes, stations.latitudes, values,
        {triangles::LevelChoice::list, 0, 0, set.levels.data(), static_cast<int>(set.levels.size())}, table);
    set.coordinates = base::allocateFloats(2 * traced.points.size());
    float* next = set.coordinates.get();
    for (const auto& [longitude, latitude] : traced.points) {
        *next++ = longitude;
        *next++ = latitude;
    }
    for (const triangles::StationLine& line : traced.runs)
        set.lines.push_back(
            {{{set.coordinates.get() + 2 * line.firstPoint, 2 * line.pointCount}}, line.level});
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
    result.triangles = triangles::growTriangulation({placed.longitudes, placed.latitudes, placed.values});
    if (result.triangles.empty())
        throw Problem(
            "its stations make no triangle: one more than 2 degrees off the line from the first to its "
            "nearest neighbour is needed");
    trace(placed, set);
    return result;
}

}  // namespace velmar::tool
