#include "compute/outlines.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <cstdlib>

namespace velmar::tool {
namespace {

struct OutlineNode {
    float row;
    float column;
    auto operator<=>(const OutlineNode&) const = default;
};

struct OutlineEdge {
    OutlineNode from;
    OutlineNode to;
};

bool isOnRow(const OutlineNode& a, const OutlineNode& b) {
    return a.row == b.row && a.row == std::floor(a.row);
}

/// The outlines of areas, strip by strip. Strips meet in rows of the grid, where one walks to and
/// the other fro: those walks are added up, so that only what they do not share is left.
class StripEdges {
public:
    void add(const PaintedArea& polygon) {
        const bool forward = polygon.counterClockwise();
        const std::size_t last = polygon.size() - 1;
        const auto node = [&](std::size_t k) {
            const GeoPoint point = polygon[forward ? k : last - k];
            return OutlineNode{.row = point.latitude, .column = point.longitude};
        };
        for (std::size_t k = 0; k < last;) {
            const OutlineNode from = node(k++);
            const bool alongRow = isOnRow(from, node(k));
            while (alongRow && k < last && isOnRow(from, node(k + 1))) ++k;
            if (alongRow)
                addWalk(from, node(k));
            else
                edges_.push_back({from, node(k)});
        }
    }

    /// All edges that are left, sorted by their starts.
    std::vector<OutlineEdge> joined() {
        std::ranges::sort(changes_, {}, &Change::place);
        int walks = 0;
        OutlineNode start{};
        for (auto change = changes_.begin(); change != changes_.end();) {
            const OutlineNode place = change->place;
            int sum = 0;
            for (; change != changes_.end() && change->place == place; ++change) sum += change->walks;
            if (sum == 0) continue;
            for (int k = 0; k < std::abs(walks); ++k)
                edges_.push_back(walks > 0 ? OutlineEdge{start, place} : OutlineEdge{place, start});
            start = place;
            walks += sum;
        }
        std::ranges::sort(edges_, {}, &OutlineEdge::from);
        return std::move(edges_);
    }

private:
    /// From this column on, so many more walks lead to higher columns than to lower ones.
    struct Change {
        OutlineNode place;
        int walks;
    };

    void addWalk(const OutlineNode& from, const OutlineNode& to) {
        changes_.push_back({from, 1});
        changes_.push_back({to, -1});
    }

    std::vector<OutlineEdge> edges_;
    std::vector<Change> changes_;
};

bool isOnGridLine(const OutlineNode& a, const OutlineNode& b) {
    return isOnRow(a, b) || (a.column == b.column && a.column == std::floor(a.column));
}

bool inRun(const OutlineNode& a, const OutlineNode& b, const OutlineNode& c) {
    return (a.column == b.column && b.column == c.column) || (a.row == b.row && b.row == c.row);
}

/// Leaves out points inside runs along rows and columns, and tells corners of the data's edge from others.
AreaOutline outlineOf(const std::vector<OutlineNode>& ring) {
    std::vector<OutlineNode> corners;
    for (std::size_t k = 0; k < ring.size(); ++k) {
        const OutlineNode& before = corners.empty() ? ring.back() : corners.back();
        if (!inRun(before, ring[k], ring[(k + 1) % ring.size()])) corners.push_back(ring[k]);
    }
    AreaOutline outline;
    for (std::size_t k = 0; k < corners.size(); ++k) {
        const OutlineNode& before = corners[(k + corners.size() - 1) % corners.size()];
        const OutlineNode& behind = corners[(k + 1) % corners.size()];
        outline.push_back({corners[k].column, corners[k].row,
                           isOnGridLine(before, corners[k]) || isOnGridLine(corners[k], behind)});
    }
    return outline;
}

/// Follows edges that are sorted by their starts from end to start. As many lead to every point as from it.
std::vector<AreaOutline> chain(const std::vector<OutlineEdge>& edges) {
    std::vector<bool> used(edges.size(), false);
    const auto nextFrom = [&](const OutlineNode& node) {
        auto edge = static_cast<std::size_t>(std::ranges::lower_bound(edges, node, {}, &OutlineEdge::from) -
                                             edges.begin());
        while (edge < edges.size() && edges[edge].from == node && used[edge]) ++edge;
        return edge;
    };
    std::vector<AreaOutline> outlines;
    for (std::size_t start = 0; start < edges.size(); ++start) {
        std::vector<OutlineNode> ring;
        for (std::size_t k = start; k < edges.size() && !used[k]; k = nextFrom(edges[k].to)) {
            used[k] = true;
            ring.push_back(edges[k].from);
            if (edges[k].to == edges[start].from) break;
        }
        AreaOutline outline = outlineOf(ring);
        if (outline.size() > 2) outlines.push_back(std::move(outline));
    }
    return outlines;
}

}  // namespace

std::vector<AreaOutline> joinStrips(const Shading& shading) {
    StripEdges edges;
    for (const PaintedArea& polygon : shading.polygons) edges.add(polygon);
    return chain(edges.joined());
}

}  // namespace velmar::tool
