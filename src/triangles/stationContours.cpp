#include "triangles/stationContours.h"

#include <algorithm>

#include "triangles/segments.h"
#include "triangles/triangulation.h"

namespace velmar::triangles {
namespace {

struct Range {
    float smallest;
    float largest;
};

Range rangeOf(std::span<const float> values) {
    Range range{values.front(), values.front()};
    for (const float value : values) {
        if (value < range.smallest) range.smallest = value;
        if (value > range.largest) range.largest = value;
    }
    return range;
}

}  // namespace

Lines contourStations(std::span<const float> x, std::span<const float> y, std::span<float> values,
                      const LevelRequest& request, LevelTable& levels) {
    const auto [smallest, largest] = rangeOf(values);
    chooseLevels(request, smallest, largest, levels);
    Lines lines;
    if (levels.count == 0) return lines;
    nudgeValues(levels.view(), values);
    const StationsView stations{x, y, values};
    const std::vector<RangedTriangle> triangles = withRanges(growNetwork(stations), values);
    std::vector<Segment> segments;
    for (const float level : levels.view()) {
        cutTriangles(stations, triangles, level, segments);
        joinSegments(segments, level, lines);
    }
    return lines;
}

}  // namespace velmar::triangles
