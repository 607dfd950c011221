#include "geometry/stationContours.h"

#include <algorithm>

#include "frame/messages.h"
#include "frame/progress.h"
#include "geometry/chains.h"
#include "geometry/network.h"
#include "geometry/segments.h"

namespace velmar::geometry {
namespace {

namespace messages = frame::messages;

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

frame::ResultBlock pack(const Lines& lines) {
    const std::size_t size = 1 + 2 * (lines.points.size() + lines.lines.size());
    frame::progress(messages::stationLinesSize, {size});
    frame::ResultBlock block = frame::allocateBlock(size);
    frame::BlockWriter out(block);
    out.appendCount(size);
    auto point = lines.points.begin();
    std::size_t next = 1;
    for (const auto& [points, level] : lines.lines) {
        out.appendCount(points);
        out.append(level);
        for (const auto end = point + static_cast<std::ptrdiff_t>(points); point != end; ++point) {
            out.append(point->x);
            out.append(point->y);
        }
        next += 2 + 2 * points;
        frame::progress(messages::nextElement, {next});
    }
    return block;
}

}  // namespace

frame::ResultBlock contourStations(std::span<const float> x, std::span<const float> y,
                                   std::span<float> values, const LevelRequest& request, LevelTable& levels) {
    const auto [smallest, largest] = rangeOf(values);
    chooseLevels(request, smallest, largest, levels);
    if (levels.count == 0) return nullptr;
    nudgeValues(levels.view(), values);
    const StationsView stations{x, y, values};
    const std::vector<RangedTriangle> triangles = withRanges(growNetwork(stations), values);
    Lines lines;
    std::vector<Segment> segments;
    for (const float level : levels.view()) {
        cutTriangles(stations, triangles, level, segments);
        joinSegments(segments, level, lines);
    }
    return lines.lines.empty() ? nullptr : pack(lines);
}

}  // namespace velmar::geometry
