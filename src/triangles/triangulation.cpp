#include "triangles/triangulation.h"

#include <cmath>
#include <limits>
#include <optional>
#include <unordered_map>
#include <utility>

#include "triangles/edge.h"

namespace velmar::triangles {
namespace {

/// The first station is looked for within this distance, degrees.
constexpr double farthest = 10000;

PlanePoint placeOf(const StationsView& stations, std::uint32_t k) {
    return {stations.longitudes[k], stations.latitudes[k]};
}

/// The nearest station to a place, other than station 0, that fits; of several at the same distance the first.
template <class Fits>
std::optional<std::uint32_t> nearestTo(const StationsView& stations, PlanePoint place, Fits fits) {
    std::optional<std::uint32_t> nearest;
    double best = farthest;
    for (std::uint32_t k = 1; k < stations.count(); ++k) {
        if (!fits(k)) continue;
        const PlanePoint p = placeOf(stations, k);
        const double dx = p.longitude - place.longitude;
        const double dy = p.latitude - place.latitude;
        const double distance = std::sqrt(dx * dx + dy * dy);
        if (!(distance < best)) continue;
        best = distance;
        nearest = k;
    }
    return nearest;
}

std::optional<Triangle> firstTriangle(const StationsView& stations) {
    constexpr double leastHeight = 2.0;
    const auto second = nearestTo(stations, placeOf(stations, 0), [](std::uint32_t) { return true; });
    if (!second) return std::nullopt;
    const PlanePoint a = placeOf(stations, 0);
    const PlanePoint b = placeOf(stations, *second);
    const double dx = b.longitude - a.longitude;
    const double dy = b.latitude - a.latitude;
    const double length = std::sqrt(dx * dx + dy * dy);
    const auto third = nearestTo(
        stations, {(a.longitude + b.longitude) / 2, (a.latitude + b.latitude) / 2}, [&](std::uint32_t k) {
            const PlanePoint p = placeOf(stations, k);
            return k != *second &&
                   std::fabs(dx * (p.latitude - a.latitude) - dy * (p.longitude - a.longitude)) / length >
                       leastHeight;
        });
    if (!third) return std::nullopt;
    return Triangle{0, *second, *third};
}

/// In how many triangles each edge is.
class EdgeCounts {
public:
    void reserve(std::size_t edges) { counts_.reserve(edges); }

    void add(const Triangle& triangle) {
        const auto [a, b, c] = triangle;
        ++counts_[keyOf(a, b)];
        ++counts_[keyOf(a, c)];
        ++counts_[keyOf(b, c)];
    }

    int operator()(std::uint32_t a, std::uint32_t b) const {
        const auto found = counts_.find(keyOf(a, b));
        return found == counts_.end() ? 0 : found->second;
    }

private:
    static std::uint64_t keyOf(std::uint32_t a, std::uint32_t b) {
        return a < b ? std::uint64_t{a} << 32U | b : std::uint64_t{b} << 32U | a;
    }

    std::unordered_map<std::uint64_t, int> counts_;
};

/// The triangles, and what is needed to grow more.
class Growth {
public:
    explicit Growth(const StationsView& stations)
        : stations_(stations), tree_(stations.longitudes, stations.latitudes) {
        // Most triangulations have twice as many triangles as stations, and three times as many edges.
        triangles_.reserve(2 * stations.count());
        counts_.reserve(3 * stations.count());
    }

    std::vector<Triangle> grow(const Triangle& first) {
        append(first);
        // Triangles are appended while they are visited.
        for (std::size_t k = 0; k < triangles_.size(); ++k) {
            const auto [a, b, c] = triangles_[k];
            extend(a, b, c);
            extend(a, c, b);
            extend(b, c, a);
        }
        return std::move(triangles_);
    }

private:
    void append(const Triangle& triangle) {
        triangles_.push_back(triangle);
        counts_.add(triangle);
    }

    /// Adds a triangle beyond an open edge, seen from the third vertex of its triangle.
    void extend(std::uint32_t p1, std::uint32_t p2, std::uint32_t third) {
        if (counts_(p1, p2) > 1) return;
        const auto vertex = bestViewOf(p1, p2, third);
        if (!vertex || counts_(p1, *vertex) > 1 || counts_(p2, *vertex) > 1) return;
        append({p1, p2, *vertex});
    }

    /// The station that sees an edge under the largest angle from beyond it; of several the first.
    std::optional<std::uint32_t> bestViewOf(std::uint32_t p1, std::uint32_t p2, std::uint32_t third) const {
        const PlanePoint a = placeOf(stations_, p1);
        const PlanePoint b = placeOf(stations_, p2);
        const EdgeLine line(a, b);
        const LineSide inner = sideOf(line, placeOf(stations_, third));
        std::optional<std::uint32_t> best;
        double bestView = 0;
        double reach = std::numeric_limits<double>::infinity();
        const PlanePoint middle{(a.longitude + b.longitude) / 2, (a.latitude + b.latitude) / 2};
        tree_.search(
            middle,
            [&](const PlaneBox& extent, double squaredDistance) {
                return squaredDistance <= reach && reachesBeyond(extent, line, inner);
            },
            [&](std::uint32_t k, PlanePoint place) {
                if (squaredDistance(middle, place) > reach) return;
                const LineSide side = sideOf(line, place);
                if (side == LineSide::on || side == inner || k == p1 || k == p2 || k == third) return;
                const double view = viewOf(a, b, place);
                if (!(view > bestView || (view == bestView && best && k < *best))) return;
                best = k;
                bestView = view;
                reach = squaredReach(a, b, view);
            });
        return best;
    }

    const StationsView& stations_;
    StationTree tree_;
    std::vector<Triangle> triangles_;
    EdgeCounts counts_;
};

}  // namespace

std::vector<Triangle> growTriangulation(const StationsView& stations) {
    const std::optional<Triangle> first = firstTriangle(stations);
    return first ? Growth(stations).grow(*first) : std::vector<Triangle>{};
}

}  // namespace velmar::triangles
