#include "triangles/segments.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmar::triangles {

namespace {

/// Where the level cuts the edges of a triangle.
struct Cuts {
    std::array<grid::Point, 3> points;
    std::size_t count = 0;
};

Cuts cutsOf(const StationsView& stations, const Triangle& triangle, float level) {
    const auto [a, b, c] = triangle;
    Cuts cuts;
    for (const auto& [from, to] : {std::pair(a, b), std::pair(b, c), std::pair(c, a)}) {
        const float u = stations.values[from];
        const float v = stations.values[to];
        if (!((level - u) * (level - v) < 0)) continue;
        const float part = (level - u) / (v - u);
        cuts.points[cuts.count++] = {stations.x[from] + (stations.x[to] - stations.x[from]) * part,
                                     stations.y[from] + (stations.y[to] - stations.y[from]) * part};
    }
    return cuts;
}

}  // namespace

std::vector<RangedTriangle> withRanges(std::span<const Triangle> triangles, std::span<const float> values) {
    std::vector<RangedTriangle> ranged;
    ranged.reserve(triangles.size());
    for (const auto& [a, b, c] : triangles) {
        const auto [smallest, largest] = std::minmax({values[a], values[b], values[c]});
        ranged.push_back({{a, b, c}, smallest, largest});
    }
    return ranged;
}

void cutTriangles(const StationsView& stations, std::span<const RangedTriangle> triangles, float level,
                  std::vector<Segment>& segments) {
    segments.clear();
    for (const RangedTriangle& triangle : triangles) {
        if (level < triangle.smallest || level > triangle.largest) continue;
        const Cuts cuts = cutsOf(stations, triangle.vertices, level);
        if (cuts.count == 2) segments.push_back({cuts.points[0], cuts.points[1]});
    }
}

}  // namespace velmar::triangles
