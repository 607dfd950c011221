#include "compute/outlines.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <cstdlib>

namespace velmar::tool {
namespace {

struct Node {
    float row;
    float column;
    auto operator<=>(const Node&) const = default;
};

struct Edge {
    Node from;
    Node to;
};

bool isOnRow(const Node& a, const Node& b) { return a.row == b.row && a.row == std::floor(a.row); }

/// The outlines of areas, strip by strip. Strips meet in rows of the grid, where one walks to and
/// the other fro: those walks are added up, so that only what they do not share is left.
class StripEdges {
public:
    void add(const ShadePolygon& polygon) {
        const bool forward = polygon.counterClockwise();
        const std::size_t last = polygon.size() - 1;
        const auto node = [&](std::size_t k) {
            const GeoPoint point = polygon[forward ? k : last - k];
            return Node{.row = point.latitude, .column = point.longitude};
        };
        for (std::size_t k = 0; k < last;) {
            const Node from = node(k++);
            const bool alongRow = isOnRow(from, node(k));
            while (alongRow && k < last && isOnRow(from, node(k + 1))) ++k;
            if (alongRow)
                addWalk(from, node(k));
            else
                edges_.push_back({from, node(k)});
        }
    }

    /// All edges that are left, sorted by their starts.
    std::vector<Edge> joined() {
        std::ranges::sort(changes_, {}, &Change::place);
        int walks = 0;
        Node start{};
        for (auto change = changes_.begin(); change != changes_.end();) {
            const Node place = change->place;
            int sum = 0;
            for (; change != changes_.end() && change->place == place; ++change) sum += change->walks;
            if (sum == 0) continue;
            for (int k = 0; k < std::abs(walks); ++k)
                edges_.push_back(walks > 0 ? Edge{start, place} : Edge{place, start});
            start = place;
            walks += sum;
        }
        std::ranges::sort(edges_, {}, &Edge::from);
        return std::move(edges_);
    }

private:
    /// From this column on, so many more walks lead to higher columns than to lower ones.
    struct Change {
        Node place;
        int walks;
    };

    void addWalk(const Node& from, const Node& to) {
        changes_.push_back({from, 1});
        changes_.push_back({to, -1});
    }

    std::vector<Edge> edges_;
    std::vector<Change> changes_;
};

bool isOnGridLine(const Node& a, const Node& b) {
    return isOnRow(a, b) || (a.column == b.column && a.column == std::floor(a.column));
}

bool inRun(const Node& a, const Node& b, const Node& c) {
    return (a.column == b.column && b.column == c.column) || (a.row == b.row && b.row == c.row);
}

/// Leaves out points inside runs along rows and columns, and tells corners of the data's edge from others.
Outline outlineOf(const std::vector<Node>& ring) {
    std::vector<Node> corners;
    for (std::size_t k = 0; k < ring.size(); ++k) {
        const Node& before = corners.empty() ? ring.back() : corners.back();
        if (!inRun(before, ring[k], ring[(k + 1) % ring.size()])) corners.push_back(ring[k]);
    }
    Outline outline;
    for (std::size_t k = 0; k < corners.size(); ++k) {
        const Node& before = corners[(k + corners.size() - 1) % corners.size()];
        const Node& behind = corners[(k + 1) % corners.size()];
        outline.push_back({corners[k].column, corners[k].row,
                           isOnGridLine(before, corners[k]) || isOnGridLine(corners[k], behind)});
    }
    return outline;
}

/// Follows edges that are sorted by their starts from end to start. As many lead to every point as from it.
std::vector<Outline> chain(const std::vector<Edge>& edges) {
    std::vector<bool> used(edges.size(), false);
    const auto nextFrom = [&](const Node& node) {
        auto edge =
            static_cast<std::size_t>(std::ranges::lower_bound(edges, node, {}, &Edge::from) - edges.begin());
        while (edge < edges.size() && edges[edge].from == node && used[edge]) ++edge;
        return edge;
    };
    std::vector<Outline> outlines;
    for (std::size_t start = 0; start < edges.size(); ++start) {
        std::vector<Node> ring;
        for (std::size_t k = start; k < edges.size() && !used[k]; k = nextFrom(edges[k].to)) {
            used[k] = true;
            ring.push_back(edges[k].from);
            if (edges[k].to == edges[start].from) break;
        }
        Outline outline = outlineOf(ring);
        if (outline.size() > 2) outlines.push_back(std::move(outline));
    }
    return outlines;
}

}  // namespace

std::vector<Outline> joinStrips(const Shading& shading) {
    StripEdges edges;
    for (const ShadePolygon& polygon : shading.polygons) edges.add(polygon);
    return chain(edges.joined());
}

}  // namespace velmar::tool
