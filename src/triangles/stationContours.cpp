#include "triangles/stationContours.h"

#include <algorithm>

#include "triangles/triangulation.h"

namespace velmar::triangles {
namespace {

struct StationRange {
    float smallest;
    float largest;
};

StationRange rangeOf(std::span<const float> values) {
    StationRange range{values.front(), values.front()};
    for (const float value : values) {
        if (value < range.smallest) range.smallest = value;
        if (value > range.largest) range.largest = value;
    }
    return range;
}

}  // namespace

StationLines contourStations(std::span<const float> longitudes, std::span<const float> latitudes,
                             std::span<float> values, const StationLevelRequest& request,
                             LevelTable& levels) {
    const auto [smallest, largest] = rangeOf(values);
    chooseStationLevels(request, smallest, largest, levels);
    StationLines lines;
    if (levels.count == 0) return lines;
    nudgeValues(levels.view(), values);
    const StationsView stations{longitudes, latitudes, values};
    const std::vector<RangedTriangle> triangles = withRanges(growTriangulation(stations), values);
    std::vector<LinePiece> pieces;
    for (const float level : levels.view()) {
        cutTriangles(stations, triangles, level, pieces);
        joinPieces(pieces, level, lines);
    }
    return lines;
}

}  // namespace velmar::triangles
