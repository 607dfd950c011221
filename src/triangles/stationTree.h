#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace velmar::triangles {

/// A place in double precision.
struct Place {
    double x;
    double y;
};

inline double squaredDistance(Place a, Place b) {
    const double dx = a.x - b.x;
    const double dy = a.y - b.y;
    return dx * dx + dy * dy;
}

/// An upright rectangle.
struct Extent {
    Place lowest{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    Place highest{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

    void include(Place p) {
        lowest = {p.x < lowest.x ? p.x : lowest.x, p.y < lowest.y ? p.y : lowest.y};
        highest = {p.x > highest.x ? p.x : highest.x, p.y > highest.y ? p.y : highest.y};
    }
    double squaredDistanceTo(Place p) const {
        const double dx = p.x < lowest.x ? lowest.x - p.x : p.x > highest.x ? p.x - highest.x : 0;
        const double dy = p.y < lowest.y ? lowest.y - p.y : p.y > highest.y ? p.y - highest.y : 0;
        return dx * dx + dy * dy;
    }
};

/// Stations in a balanced tree of extents (a k-d tree, after Bentley 1975). A search skips whole extents that cannot
/// matter, whether stations are spread evenly or not.
class StationTree {
public:
    /// Stations without a finite place are left out, as is station 0.
    StationTree(std::span<const float> x, std::span<const float> y);

    /// Visits stations, those of nearer extents first.
    ///
    ///   isWorthIt(extent, squaredDistance)  whether the stations of an extent at this distance from the centre matter
    ///   visit(station, place)
    template <class IsWorthIt, class Visit>
    void search(Place center, IsWorthIt isWorthIt, Visit visit) const {
        if (!nodes_.empty()) searchNode(0, center, isWorthIt, visit);
    }

private:
    static constexpr std::uint32_t leafSize = 8;

    struct Node {
        Extent extent;
        std::uint32_t first;  ///< of its stations among all in the order of the tree
        std::uint32_t count;
        std::uint32_t second;  ///< its second child; the first one follows it. 0 for a leaf
    };
    struct Station {
        Place place;
        std::uint32_t number;
    };

    std::uint32_t build(std::uint32_t first, std::uint32_t count);

    template <class IsWorthIt, class Visit>
    void searchNode(std::uint32_t index, Place center, IsWorthIt& isWorthIt, Visit& visit) const {
        const Node& node = nodes_[index];
        if (node.second == 0) {
            for (std::uint32_t k = node.first; k < node.first + node.count; ++k)
                visit(stations_[k].number, stations_[k].place);
            return;
        }
        std::array<std::uint32_t, 2> children{index + 1, node.second};
        std::array<double, 2> distances{nodes_[children[0]].extent.squaredDistanceTo(center),
                                        nodes_[children[1]].extent.squaredDistanceTo(center)};
        if (distances[1] < distances[0]) {
            std::swap(children[0], children[1]);
            std::swap(distances[0], distances[1]);
        }
        for (const std::size_t k : {0U, 1U})
            if (isWorthIt(nodes_[children[k]].extent, distances[k]))
                searchNode(children[k], center, isWorthIt, visit);
    }

    std::vector<Node> nodes_;
    std::vector<Station> stations_;
};

}  // namespace velmar::triangles
