#include "regions/regions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "base/messages.h"
#include "base/progress.h"

namespace velmar::regions {
namespace {

using grid::Point;
namespace messages = base::messages;

/// Boundaries of fewer edges are tested edge by edge, and so are those of more than an index can number.
constexpr std::size_t fewEdges = 16;
constexpr std::size_t mostEdges = std::numeric_limits<std::uint32_t>::max();

/// A segment of a parallel.
struct Segment {
    float west;
    float east;
    float latitude;
};

struct Edge {
    Point first;
    Point second;
};

/// Which side of an edge's line a point lies on, by the sign.
float sideOf(const Edge& edge, Point p) {
    return (edge.second.x - edge.first.x) * (p.y - edge.first.y) -
           (edge.second.y - edge.first.y) * (p.x - edge.first.x);
}

/// Whether an edge crosses a segment or touches it, in single precision: where the product of the sides underflows,
/// it does.
bool cross(const Segment& segment, const Edge& edge) {
    const auto [x1, y1] = edge.first;
    const auto [x2, y2] = edge.second;
    if (segment.east < std::min(x1, x2) || segment.west > std::max(x1, x2)) return false;
    if (std::max(y1, y2) < segment.latitude || std::min(y1, y2) > segment.latitude) return false;
    return -(sideOf(edge, {segment.west, segment.latitude}) *
             sideOf(edge, {segment.east, segment.latitude})) >= 0;
}

Edge edgeOf(const float* points, std::size_t k) {
    const float* const at = points + 2 * k;
    return {{at[0], at[1]}, {at[2], at[3]}};
}

std::size_t edgeCount(const Region& region) { return region.points < 2 ? 0 : region.points - 1; }

int countCrossings(const RegionTable& table, const Region& region, Segment segment) {
    if (segment.west > segment.east) std::swap(segment.west, segment.east);
    const float* const points = table.pointsOf(region);
    int count = 0;
    if (region.edges == nullptr) {
        for (std::size_t k = 0; k < edgeCount(region); ++k)
            count += cross(segment, edgeOf(points, k)) ? 1 : 0;
    } else {
        for (const std::uint32_t k : region.edges->near(0, segment.latitude))
            count += cross(segment, edgeOf(points, k)) ? 1 : 0;
    }
    return count;
}

bool isOdd(int count) { return count % 2 != 0; }

bool isInside(const RegionTable& table, const Region& region, float x, float y) {
    const int left = countCrossings(table, region, {0, x, y});
    base::progress(messages::leftCrossings, {left, left % 2});
    if (left != 0) return isOdd(left);
    const int right = countCrossings(table, region, {x, 360, y});
    base::progress(messages::rightCrossings, {right, right % 2});
    return isOdd(right);
}

bool contains(const Box& box, float x, float y) {
    return box.west <= x && x <= box.east && box.south <= y && y <= box.north;
}

/// Bounds that hold no place.
constexpr float beyond = 999;
constexpr Box noBounds{beyond, -beyond, beyond, -beyond};

Box boundsOf(const float* points, std::size_t count) {
    Box box = noBounds;
    for (std::size_t k = 0; k < count; ++k) {
        const float x = points[2 * k];
        const float y = points[2 * k + 1];
        if (x < box.west) box.west = x;
        if (x > box.east) box.east = x;
        if (y < box.south) box.south = y;
        if (y > box.north) box.north = y;
    }
    return box;
}

/// Two edges for each bucket: an outline passes a parallel at least twice.
std::unique_ptr<BoxIndex> indexEdges(const RegionTable& table, const Region& region,
                                     std::vector<Box>& boxes) {
    if (edgeCount(region) < fewEdges || edgeCount(region) > mostEdges) return nullptr;
    boxes.clear();
    for (std::size_t k = 0; k < edgeCount(region); ++k) {
        const auto [a, b] = edgeOf(table.pointsOf(region), k);
        boxes.push_back({0, 0, std::min(a.y, b.y), std::max(a.y, b.y)});
    }
    return std::make_unique<BoxIndex>(boxes, 1, static_cast<std::uint32_t>(boxes.size() / 2));
}

void buildIndices(RegionTable& table) {
    std::vector<Box> boxes;
    for (Region& region : table.regions) region.edges = indexEdges(table, region, boxes);
    boxes.clear();
    for (const Region& region : table.regions) boxes.push_back(region.bounds);
    const double side = std::ceil(std::sqrt(static_cast<double>(boxes.size() + 1)));
    table.index = BoxIndex(boxes, static_cast<std::uint32_t>(side), static_cast<std::uint32_t>(side));
}

}  // namespace

RegionTable::RegionTable(base::NamedOutlines outlines)
    : names(std::move(outlines.names)), coordinates(std::move(outlines.coordinates)) {
    // They stay as long as the process.
    names.shrink_to_fit();
    coordinates.shrink_to_fit();
    regions.reserve(outlines.outlines.size());
    for (const auto& [name, firstPoint, points, isWhole] : outlines.outlines) {
        Region& region = regions.emplace_back(Region{name, firstPoint, points, noBounds, nullptr});
        if (isWhole) region.bounds = boundsOf(pointsOf(region), points);
    }
    buildIndices(*this);
}

const Region* findRegion(const RegionTable& table, float longitude, float latitude) {
    for (const std::uint32_t k : table.index.near(longitude, latitude)) {
        const Region& region = table.regions[k];
        if (contains(region.bounds, longitude, latitude) && isInside(table, region, longitude, latitude))
            return &region;
    }
    return nullptr;
}

}  // namespace velmar::regions
