#pragma once

#include "shade/curveModel.h"

namespace velmar::test {

/// The ground of a strip as the curve of one level parts it. A node is what a cell has of the ground around
/// one of its corners; ground without data counts as low. Links lead to the nodes beside a node.
class Ground {
public:
    static constexpr std::size_t none = SIZE_MAX;
    using Nodes = std::vector<bool>;

    /// A low region within high ground.
    struct Hollow {
        Nodes reach;           // the region and all that it rings
        bool meetsMissing;     // its outline runs along ground without data
        bool leftmostAtPoint;  // the outline's leftmost crossing of a row is at a grid point
    };

    Ground(const Field& field, int bottom, int top, float level)
        : field_(field), curves_(field, bottom, top, level) {
        nodes_.resize(static_cast<std::size_t>(4 * (top - bottom) * (field.nx - 1)));
        for (int j = bottom; j < top; ++j) {
            for (int i = 1; i < field.nx; ++i) linkCell(i, j);
        }
        Nodes seen(nodes_.size(), false);
        for (std::size_t n = 0; n < nodes_.size(); ++n) {
            if (nodes_[n].high || seen[n]) continue;
            const auto region = flood({n}, [&](std::size_t m) { return !nodes_[m].high; });
            bool open = false;
            for (std::size_t m = n; m < region.size(); ++m) {
                seen[m] = seen[m] || region[m];
                open = open || (region[m] && nodes_[m].onEdge);
            }
            if (!open) addHollow(region);
        }
    }

    /// The node of a position in a cell, none beside the curve.
    std::size_t nodeAt(int i, int j, Position p) const {
        int other = 0;
        for (const auto& [exit, entry] : curves_.cuts(i, j)) {
            const Position a = curves_.position(curves_.sideNumber(i, j, exit));
            const Position b = curves_.position(curves_.sideNumber(i, j, entry));
            const float left = (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
            if (std::abs(left) < 1e-3F * std::hypot(b.x - a.x, b.y - a.y)) return none;
            const bool cutsLow = entry == (exit + 1) % 4;
            if (cutsLow == (left < 0)) return number(i, j, exit + cutsLow);
            other = exit + !cutsLow;
        }
        return number(i, j, other);
    }

    bool high(std::size_t node) const { return nodes_[node].high; }
    const std::vector<Hollow>& hollows() const { return hollows_; }

private:
    struct Node {
        bool high, missing, onEdge;
        std::vector<std::size_t> links;
    };

    std::size_t number(int i, int j, int c) const {
        return static_cast<std::size_t>(4 * ((j - curves_.bottom) * (field_.nx - 1) + i - 1) + c % 4);
    }

    void link(std::size_t one, std::size_t other) {
        nodes_[one].links.push_back(other);
        nodes_[other].links.push_back(one);
    }

    void linkCell(int i, int j) {
        const bool known = field_.knownCell(i, j);
        for (int c = 0; c < 4; ++c) {
            const auto [m, n] = StripCurves::corner(i, j, c);
            Node& node = nodes_[number(i, j, c)];
            node.high = known && curves_.high(m, n);
            node.missing = !known;
            node.onEdge = m == 1 || m == field_.nx || n == curves_.bottom || n == curves_.top;
            link(number(i, j, c), number(i, j, c + 1));
        }
        if (const auto cuts = curves_.cuts(i, j); cuts.size() == 2) {
            const bool joinsLow = cuts[0].second != (cuts[0].first + 1) % 4;
            link(number(i, j, cuts[0].first + joinsLow), number(i, j, cuts[1].first + joinsLow));
        }
        linkNeighbour(i, j, 0, -1, {{{0, 3}, {1, 2}}});
        linkNeighbour(i, j, -1, 0, {{{0, 1}, {3, 2}}});
        // Missing cells that touch at a point hang together: the outline stays with the cells beside them.
        if (known) return;
        if (!field_.knownCell(i - 1, j - 1)) linkNeighbour(i, j, -1, -1, {{{0, 2}, {0, 2}}});
        if (!field_.knownCell(i + 1, j - 1)) linkNeighbour(i, j, 1, -1, {{{1, 3}, {1, 3}}});
    }

    void linkNeighbour(int i, int j, int di, int dj, const std::array<std::pair<int, int>, 2>& corners) {
        if (!curves_.inStrip(i + di, j + dj)) return;
        for (const auto& [c, other] : corners) link(number(i, j, c), number(i + di, j + dj, other));
    }

    /// The nodes reached from some over nodes that may be entered.
    template <typename Enter>
    Nodes flood(std::vector<std::size_t> open, Enter enter) const {
        Nodes reached(nodes_.size(), false);
        for (const std::size_t n : open) reached[n] = true;
        while (!open.empty()) {
            const std::size_t n = open.back();
            open.pop_back();
            for (const std::size_t m : nodes_[n].links) {
                if (reached[m] || !enter(m)) continue;
                reached[m] = true;
                open.push_back(m);
            }
        }
        return reached;
    }

    void addHollow(const Nodes& region) {
        std::vector<std::size_t> edge;
        for (std::size_t n = 0; n < nodes_.size(); ++n) {
            if (nodes_[n].onEdge) edge.push_back(n);
        }
        Nodes reach = flood(edge, [&](std::size_t m) { return !region[m]; });
        bool meetsMissing = false;
        for (std::size_t n = 0; n < nodes_.size(); ++n) {
            for (const std::size_t m : nodes_[n].links)
                meetsMissing |= region[n] && nodes_[n].missing && nodes_[m].high && reach[m];
        }
        reach.flip();
        const float left = leftmostCrossing(region);
        hollows_.push_back({std::move(reach), meetsMissing, left == std::floor(left)});
    }

    float leftmostCrossing(const Nodes& region) const {
        float leftmost = static_cast<float>(field_.nx);
        for (int j = curves_.bottom; j < curves_.top; ++j) {
            for (int i = 1; i < field_.nx; ++i) {
                if (!region[number(i, j, 1)] || !high(number(i, j, 0))) continue;
                leftmost = std::min(leftmost, curves_.position(curves_.sideNumber(i, j, 0)).x);
            }
        }
        return leftmost;
    }

    const Field& field_;
    StripCurves curves_;
    std::vector<Node> nodes_;
    std::vector<Hollow> hollows_;
};

}  // namespace velmar::test
