#include "regions/regions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <utility>

#include "base/messages.h"
#include "base/progress.h"

namespace velmar::regions {
namespace {

using base::LonLat;
using base::LonLatBox;
namespace messages = base::messages;

/// Boundaries of fewer edges are tested edge by edge, and so are those of more than an index can number.
constexpr std::size_t fewEdges = 16;
constexpr std::size_t mostEdges = std::numeric_limits<std::uint32_t>::max();

/// A part of a parallel.
struct ParallelPart {
    float west;
    float east;
    float latitude;
};

struct BoundaryEdge {
    LonLat first;
    LonLat second;
};

/// Which side of an edge's line a place lies on, by the sign.
float sideOf(const BoundaryEdge& edge, LonLat p) {
    return (edge.second.longitude - edge.first.longitude) * (p.latitude - edge.first.latitude) -
           (edge.second.latitude - edge.first.latitude) * (p.longitude - edge.first.longitude);
}

/// Whether an edge crosses a part of a parallel or touches it, in single precision: where the product of the sides
/// underflows, it does.
bool cross(const ParallelPart& part, const BoundaryEdge& edge) {
    const auto [x1, y1] = edge.first;
    const auto [x2, y2] = edge.second;
    if (part.east < std::min(x1, x2) || part.west > std::max(x1, x2)) return false;
    if (std::max(y1, y2) < part.latitude || std::min(y1, y2) > part.latitude) return false;
    return -(sideOf(edge, {part.west, part.latitude}) * sideOf(edge, {part.east, part.latitude})) >= 0;
}

BoundaryEdge edgeOf(std::span<const LonLat> points, std::size_t k) { return {points[k], points[k + 1]}; }

std::size_t edgeCount(const Region& region) { return region.pointCount < 2 ? 0 : region.pointCount - 1; }

int countCrossings(const RegionTable& table, const Region& region, ParallelPart part) {
    if (part.west > part.east) std::swap(part.west, part.east);
    const std::span<const LonLat> points = table.pointsOf(region);
    int count = 0;
    if (region.edges == nullptr) {
        for (std::size_t k = 0; k < edgeCount(region); ++k) count += cross(part, edgeOf(points, k)) ? 1 : 0;
    } else {
        for (const std::uint32_t k : region.edges->near({0, part.latitude}))
            count += cross(part, edgeOf(points, k)) ? 1 : 0;
    }
    return count;
}

bool isOdd(int count) { return count % 2 != 0; }

/// Whether a boundary encloses a place, by the number of its crossings.
bool encloses(const RegionTable& table, const Region& region, LonLat place) {
    const auto [longitude, latitude] = place;
    const int left = countCrossings(table, region, {0, longitude, latitude});
    base::progress(messages::leftCrossings, {left, left % 2});
    if (left != 0) return isOdd(left);
    const int right = countCrossings(table, region, {longitude, 360, latitude});
    base::progress(messages::rightCrossings, {right, right % 2});
    return isOdd(right);
}

LonLatBox boundsOf(std::span<const LonLat> points) {
    LonLatBox bounds;
    for (const LonLat& point : points) {
        bounds.includeLongitude(point.longitude);
        bounds.includeLatitude(point.latitude);
    }
    return bounds;
}

/// Two edges for each bucket: an outline passes a parallel at least twice.
std::unique_ptr<BoxIndex> indexEdges(const RegionTable& table, const Region& region,
                                     std::vector<LonLatBox>& boxes) {
    if (edgeCount(region) < fewEdges || edgeCount(region) > mostEdges) return nullptr;
    boxes.clear();
    for (std::size_t k = 0; k < edgeCount(region); ++k) {
        const auto [a, b] = edgeOf(table.pointsOf(region), k);
        boxes.push_back({0, 0, std::min(a.latitude, b.latitude), std::max(a.latitude, b.latitude)});
    }
    return std::make_unique<BoxIndex>(boxes, 1, static_cast<std::uint32_t>(boxes.size() / 2));
}

void buildIndices(RegionTable& table) {
    std::vector<LonLatBox> boxes;
    for (Region& region : table.runs) region.edges = indexEdges(table, region, boxes);
    boxes.clear();
    for (const Region& region : table.runs) boxes.push_back(region.bounds);
    const double side = std::ceil(std::sqrt(static_cast<double>(boxes.size() + 1)));
    table.index = BoxIndex(boxes, static_cast<std::uint32_t>(side), static_cast<std::uint32_t>(side));
}

}  // namespace

RegionTable::RegionTable(base::NamedOutlines outlines) : names(std::move(outlines.names)) {
    points = std::move(outlines.points);
    // They stay as long as the process.
    names.shrink_to_fit();
    points.shrink_to_fit();
    runs.reserve(outlines.runs.size());
    for (const base::NamedOutline& outline : outlines.runs) {
        const LonLatBox bounds = outline.isWhole ? boundsOf(pointsOf(outline)) : LonLatBox{};
        runs.push_back({outline, outline.name, bounds, nullptr});
    }
    buildIndices(*this);
}

const Region* findRegion(const RegionTable& table, LonLat place) {
    for (const std::uint32_t k : table.index.near(place)) {
        const Region& region = table.runs[k];
        if (region.bounds.contains(place) && encloses(table, region, place)) return &region;
    }
    return nullptr;
}

}  // namespace velmar::regions
