#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace velmar::triangles {

/// A place on the plane map of the stations, in double precision: longitude and latitude, degrees.
struct PlanePoint {
    double longitude;
    double latitude;
};

inline double squaredDistance(PlanePoint a, PlanePoint b) {
    const double dx = a.longitude - b.longitude;
    const double dy = a.latitude - b.latitude;
    return dx * dx + dy * dy;
}

/// An upright rectangle.
struct PlaneBox {
    PlanePoint lowest{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    PlanePoint highest{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

    void include(PlanePoint p) {
        lowest = {p.longitude < lowest.longitude ? p.longitude : lowest.longitude,
                  p.latitude < lowest.latitude ? p.latitude : lowest.latitude};
        highest = {p.longitude > highest.longitude ? p.longitude : highest.longitude,
                   p.latitude > highest.latitude ? p.latitude : highest.latitude};
    }
    double squaredDistanceTo(PlanePoint p) const {
        const double dx = p.longitude < lowest.longitude    ? lowest.longitude - p.longitude
                          : p.longitude > highest.longitude ? p.longitude - highest.longitude
                                                            : 0;
        const double dy = p.latitude < lowest.latitude    ? lowest.latitude - p.latitude
                          : p.latitude > highest.latitude ? p.latitude - highest.latitude
                                                          : 0;
        return dx * dx + dy * dy;
    }
};

/// Stations in a balanced tree of extents (a k-d tree, after Bentley 1975). A search skips whole extents that cannot
/// matter, whether stations are spread evenly or not.
class StationTree {
public:
    /// Stations without a finite place are left out, as is station 0.
    StationTree(std::span<const float> longitudes, std::span<const float> latitudes);

    /// Visits stations, those of nearer extents first.
    ///
    ///   isWorthIt(extent, squaredDistance)  whether the stations of an extent at this distance from the middle matter
    ///   visit(station, place)
    template <class IsWorthIt, class Visit>
    void search(PlanePoint middle, IsWorthIt isWorthIt, Visit visit) const {
        if (!nodes_.empty()) searchNode(0, middle, isWorthIt, visit);
    }

private:
    static constexpr std::uint32_t leafSize = 8;

    struct TreeNode {
        PlaneBox extent;
        std::uint32_t first;  ///< of its stations among all in the order of the tree
        std::uint32_t count;
        std::uint32_t second;  ///< its second child; the first one follows it. 0 for a leaf
    };
    struct TreeStation {
        PlanePoint place;
        std::uint32_t number;
    };

    std::uint32_t build(std::uint32_t first, std::uint32_t count);

    template <class IsWorthIt, class Visit>
    void searchNode(std::uint32_t index, PlanePoint middle, IsWorthIt& isWorthIt, Visit& visit) const {
        const TreeNode& node = nodes_[index];
        if (node.second == 0) {
            for (std::uint32_t k = node.first; k < node.first + node.count; ++k)
                visit(stations_[k].number, stations_[k].place);
            return;
        }
        std::array<std::uint32_t, 2> children{index + 1, node.second};
        std::array<double, 2> distances{nodes_[children[0]].extent.squaredDistanceTo(middle),
                                        nodes_[children[1]].extent.squaredDistanceTo(middle)};
        if (distances[1] < distances[0]) {
            std::swap(children[0], children[1]);
            std::swap(distances[0], distances[1]);
        }
        for (const std::size_t k : {0U, 1U})
            if (isWorthIt(nodes_[children[k]].extent, distances[k]))
                searchNode(children[k], middle, isWorthIt, visit);
    }

    std::vector<TreeNode> nodes_;
    std::vector<TreeStation> stations_;
};

}  // namespace velmar::triangles
