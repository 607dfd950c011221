#pragma once

#include <array>
#include <utility>

#include "shade/shadingCall.h"

/// Shading without a walk: every cell gives its pieces of the boundary of the high ground, and pieces that
/// meet are linked. A second way to the polygons, to compare the first with.
namespace velmar::test {

/// The boundary of the ground above one level in one strip. Vertices are numbered by planes: grid points,
/// then crossings of sides along rows, then of sides along columns, each at the side's lower end. Corners of
/// a cell count counterclockwise from the bottom left; side s runs from corner s to the next.
class StripCurves {
public:
    /// Runs with the high ground on its left. A piece along a cell side has the number of that side's
    /// crossing.
    struct Piece {
        int from, to;
        int cell;
        int along;
    };
    using Cut = std::pair<int, int>;  // sides of a cell that a level curve joins, the high ground on its left

    StripCurves(const Field& field, int bottom, int top, float level)
        : field(field), bottom(bottom), top(top), level(level) {
        const auto vertices = static_cast<std::size_t>(3 * field.nx * field.ny);
        starting_.assign(vertices, {-1, -1});
        ending_.assign(vertices, {-1, -1});
        alongSide_.assign(vertices, -1);
        for (int j = bottom; j < top; ++j) {
            for (int i = 1; i < field.nx; ++i) {
                if (field.knownCell(i, j)) addCell(i, j);
            }
        }
        used_.assign(pieces_.size(), false);
    }

    int number(int plane, int i, int j) const { return (plane * field.ny + j - 1) * field.nx + i - 1; }
    bool inStrip(int i, int j) const { return i >= 1 && i < field.nx && j >= bottom && j < top; }
    bool high(int i, int j) const { return field.at(i, j) > level; }
    static std::array<int, 2> corner(int i, int j, int c) { return {i + (c % 3 != 0), j + (c >= 2)}; }
    static std::array<int, 2> neighbour(int i, int j, int side) {
        return {i + (side == 1) - (side == 3), j + (side == 2) - (side == 0)};
    }

    /// How far from a side's lower end the level crosses it.
    float fraction(int plane, int i, int j) const {
        const float end = plane == 1 ? field.at(i + 1, j) : field.at(i, j + 1);
        return (level - field.at(i, j)) / (end - field.at(i, j));
    }

    Position position(int vertex) const {
        const int plane = vertex / (field.nx * field.ny);
        const int i = vertex % field.nx + 1;
        const int j = vertex / field.nx % field.ny + 1;
        const float along = plane == 0 ? 0 : fraction(plane, i, j);
        return {static_cast<float>(i) + (plane == 1 ? along : 0),
                static_cast<float>(j) + (plane == 2 ? along : 0)};
    }

    int sideNumber(int i, int j, int side) const {
        if (side % 2 == 0) return number(1, i, j + side / 2);
        return number(2, i + (side == 1), j);
    }

    std::vector<Cut> cuts(int i, int j) const {
        std::vector<int> exits, entries;
        for (int s = 0; s < 4; ++s) {
            const auto [a, b] = ends(i, j, s);
            if (a && !b) exits.push_back(s);
            if (!a && b) entries.push_back(s);
        }
        if (exits.empty() || !field.knownCell(i, j)) return {};
        if (exits.size() == 1) return {{exits[0], entries[0]}};
        const bool withRight = bottomWithRight(i, j);
        const auto partner = [&](int side) { return withRight ? side ^ 1 : 3 - side; };
        return {{exits[0], partner(exits[0])}, {exits[1], partner(exits[1])}};
    }

    /// The closed chains as rows of vertices, in the order and sense in which scans of the strip start them.
    std::vector<std::vector<int>> chains() {
        std::vector<std::vector<int>> found;
        for (const bool crossingsOnly : {true, false}) {
            for (int j = bottom; j <= top; ++j) {
                for (int i = 1; i <= field.nx; ++i) {
                    for (const int plane : {1, 2}) {
                        if (plane == 1 ? i == field.nx : j == top) continue;
                        auto chain = crossingsOnly ? fromCrossing(plane, i, j) : fromSide(plane, i, j);
                        if (!chain.empty()) found.push_back(std::move(chain));
                    }
                }
            }
        }
        return found;
    }

    bool meetsBoundary(const std::vector<int>& chain) const {
        return std::any_of(chain.begin(), chain.end(), [&](int v) { return v < field.nx * field.ny; });
    }

    const Field& field;
    const int bottom, top;
    const float level;

private:
    std::pair<bool, bool> ends(int i, int j, int side) const {
        const auto a = corner(i, j, side);
        const auto b = corner(i, j, (side + 1) % 4);
        return {high(a[0], a[1]), high(b[0], b[1])};
    }

    bool bottomWithRight(int i, int j) const {
        const double b = fraction(1, i, j), t = fraction(1, i, j + 1);
        const double l = fraction(2, i, j), r = fraction(2, i + 1, j);
        return std::hypot(1 - l, t) + std::hypot(1 - b, r) <= std::hypot(1 - r, 1 - t) + std::hypot(b, l);
    }

    void addCell(int i, int j) {
        for (int s = 0; s < 4; ++s) {
            const auto [m, n] = neighbour(i, j, s);
            const auto [a, b] = ends(i, j, s);
            if ((inStrip(m, n) && field.knownCell(m, n)) || (!a && !b)) continue;
            const auto [ai, aj] = corner(i, j, s);
            const auto [bi, bj] = corner(i, j, (s + 1) % 4);
            const int side = sideNumber(i, j, s);
            alongSide_[static_cast<std::size_t>(side)] = static_cast<int>(pieces_.size());
            addPiece({a ? number(0, ai, aj) : side, b ? number(0, bi, bj) : side, number(0, i, j), side});
        }
        for (const auto& [exit, entry] : cuts(i, j))
            addPiece({sideNumber(i, j, exit), sideNumber(i, j, entry), number(0, i, j), -1});
    }

    void addPiece(const Piece& piece) {
        const int id = static_cast<int>(pieces_.size());
        for (auto* ids : {&starting_[index(piece.from)], &ending_[index(piece.to)]})
            (*ids)[(*ids)[0] < 0 ? 0 : 1] = id;
        pieces_.push_back(piece);
    }

    /// The piece that follows. Where two chains pass the same grid point, each stays with its cell.
    int after(int id, bool forward) const {
        const Piece& piece = pieces_[index(id)];
        const auto& [one, other] = forward ? starting_[index(piece.to)] : ending_[index(piece.from)];
        return other < 0 || pieces_[index(one)].cell == piece.cell ? one : other;
    }

    std::vector<int> follow(int first, bool forward) {
        const auto vertex = [&](int id, bool from) {
            return from ? pieces_[index(id)].from : pieces_[index(id)].to;
        };
        std::vector<int> chain{vertex(first, forward)};
        int id = first;
        do {
            used_[index(id)] = true;
            chain.push_back(vertex(id, !forward));
            id = after(id, forward);
        } while (id != first);
        return chain;
    }

    /// A chain found by a crossing follows the edge of missing ground if there is one, else goes into the
    /// cell above or right of the side, or on the strip's last row and column into the one before.
    std::vector<int> fromCrossing(int plane, int i, int j) {
        const int side = number(plane, i, j);
        if (starting_[index(side)][0] < 0 || used_[index(starting_[index(side)][0])]) return {};
        const bool last = plane == 1 ? j == top : i == field.nx;
        const int cell = number(0, i - (last && plane == 2), j - (last && plane == 1));
        int first = alongSide_[index(side)];
        if (first < 0 || onStripEdge(plane, i, j)) {
            for (const auto* ids : {&starting_[index(side)], &ending_[index(side)]}) {
                for (const int id : *ids) {
                    if (id >= 0 && pieces_[index(id)].cell == cell && pieces_[index(id)].along < 0)
                        first = id;
                }
            }
        }
        return follow(first, pieces_[index(first)].from == side);
    }

    /// A chain found by a high side starts with that side on the strip's edge, else behind it.
    std::vector<int> fromSide(int plane, int i, int j) {
        const int id = alongSide_[index(number(plane, i, j))];
        if (id < 0 || used_[index(id)]) return {};
        const bool forward = pieces_[index(id)].from == number(0, i, j);
        return follow(onStripEdge(plane, i, j) ? id : after(id, forward), forward);
    }

    bool onStripEdge(int plane, int i, int j) const {
        return plane == 1 ? j == bottom || j == top : i == 1 || i == field.nx;
    }

    static std::size_t index(int number) { return static_cast<std::size_t>(number); }

    std::vector<Piece> pieces_;
    std::vector<std::array<int, 2>> starting_, ending_;  // pieces by vertex
    std::vector<int> alongSide_;                         // piece by side
    std::vector<bool> used_;
};

/// The polygons of a shading call in their order, up to the trace that outgrows the point buffer.
class ShadingModel {
public:
    explicit ShadingModel(const Field& field) : field_(field) {
        for (int bottom = 1; bottom < field.ny && !full; bottom = field.stripTop(bottom)) {
            shadeStrip(bottom, field.stripTop(bottom));
        }
    }

    std::vector<Polygon> polygons;
    bool full = false;

private:
    void shadeStrip(int bottom, int top) {
        const auto [lowest, highest] = range(bottom, top);
        std::vector<Polygon> holes;
        int below = 0;
        for (std::size_t k = 0; k < field_.levels.size() && !full; ++k) {
            const bool skipped = k + 1 < field_.levels.size() && lowest > field_.levels[k + 1];
            if (!skipped && highest < field_.levels[k]) continue;
            if (!skipped) shadeLevel(bottom, top, k, below, holes);
            below = field_.colours[k];
        }
        if (full) return;
        for (auto hole = holes.rbegin(); hole != holes.rend(); ++hole) append(std::move(*hole));
    }

    void shadeLevel(int bottom, int top, std::size_t k, int below, std::vector<Polygon>& holes) {
        StripCurves curves(field_, bottom, top, field_.levels[k]);
        for (const std::vector<int>& chain : curves.chains()) {
            full = full || chain.size() > field_.values.size();
            if (full) return;
            Polygon polygon{field_.levels[k], field_.colours[k], {}};
            for (const int vertex : chain) polygon.points.push_back(curves.position(vertex));
            auto& points = polygon.points;
            points.erase(std::unique(points.begin(), points.end()), points.end());
            if (points.size() < 4) continue;
            if (curves.meetsBoundary(chain) || highInside(points, field_.levels[k])) {
                append(std::move(polygon));
            } else {
                holes.push_back({field_.levels.back(), below, std::move(points)});
            }
        }
    }

    bool highInside(const std::vector<Position>& points, float level) const {
        const Position* left = nullptr;
        for (const Position& point : points) {
            if (point.y == std::floor(point.y) && (left == nullptr || point.x < left->x)) left = &point;
        }
        return field_.at(static_cast<int>(left->x) + 1, static_cast<int>(left->y)) > level;
    }

    void append(Polygon polygon) {
        polygon.colour = std::clamp(polygon.colour, 0, 99);
        for (Position& p : polygon.points) {
            p = {(p.x - 1) * field_.dx + field_.x0, (p.y - 1) * field_.dy + field_.y0};
        }
        polygons.push_back(std::move(polygon));
    }

    std::pair<float, float> range(int bottom, int top) const {
        float lowest = 9.99e33F, highest = -9.99e33F;
        for (int j = bottom; j <= top; ++j) {
            for (int i = 1; i <= field_.nx; ++i) {
                if (!field_.known(i, j)) continue;
                lowest = std::min(lowest, field_.at(i, j));
                highest = std::max(highest, field_.at(i, j));
            }
        }
        return {lowest, highest};
    }

    const Field& field_;
};

}  // namespace velmar::test
