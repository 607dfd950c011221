#pragma once

#include <array>
#include <cmath>

#include "grid/grid.h"

namespace velmar::grid {

/// The sides of a grid cell, counter-clockwise.
enum class Side : unsigned { bottom, right, top, left };

constexpr unsigned bit(Side side) { return 1U << static_cast<unsigned>(side); }
constexpr Side opposite(Side side) { return static_cast<Side>((static_cast<unsigned>(side) + 2) % 4); }

/// A grid edge, named by its lower-numbered end.
struct GridEdge {
    bool alongRow;
    int i;
    int j;

    bool operator==(const GridEdge&) const = default;
};

/// A grid cell, named by its lower-numbered corner.
struct Cell {
    int i;
    int j;

    GridEdge edge(Side side) const;
    Cell neighbour(Side side) const;
};

namespace detail {

/// Where the cell beyond a side lies, and where the edge of that side begins, relative to the cell.
struct SideGeometry {
    int di;
    int dj;
    bool alongRow;
    int edgeDi;
    int edgeDj;
};

inline constexpr std::array<SideGeometry, 4> sides{{
    {0, -1, true, 0, 0},   // bottom
    {1, 0, false, 1, 0},   // right
    {0, 1, true, 0, 1},    // top
    {-1, 0, false, 0, 0},  // left
}};

}  // namespace detail

inline GridEdge Cell::edge(Side side) const {
    const detail::SideGeometry& to = detail::sides[static_cast<unsigned>(side)];
    return {to.alongRow, i + to.edgeDi, j + to.edgeDj};
}

inline Cell Cell::neighbour(Side side) const {
    const detail::SideGeometry& to = detail::sides[static_cast<unsigned>(side)];
    return {i + to.di, j + to.dj};
}

/// The crossed sides of a cell of which these corners (bits from the lower left, counter-clockwise) are above the
/// level.
constexpr unsigned crossedSides(unsigned cornersAbove) {
    return cornersAbove ^ (cornersAbove >> 1U | (cornersAbove & 1U) << 3U);
}

/// The two ways to connect the four crossings of a saddle.
enum class Pairing { bottomWithLeft, bottomWithRight };

/// The side that a pairing connects a side with.
constexpr Side partner(Pairing pairing, Side side) {
    constexpr std::array<std::array<Side, 4>, 2> partners{{
        {Side::left, Side::top, Side::right, Side::bottom},
        {Side::right, Side::bottom, Side::left, Side::top},
    }};
    return partners[static_cast<unsigned>(pairing)][static_cast<unsigned>(side)];
}

/// Lengths of the connecting segments of either pairing of a saddle, in cell widths.
struct SaddleLengths {
    double bottomWithLeft;
    double bottomWithRight;
};

/// The places where one level crosses a grid, by linear interpolation along the edges.
struct LevelCurve {
    GridView grid;
    float level;

    /// Where the level lies on an edge, from 0 at its lower-numbered end to 1.
    float fraction(const GridEdge& edge) const {
        const float a0 = grid.at(edge.i, edge.j);
        const float a1 = edge.alongRow ? grid.at(edge.i + 1, edge.j) : grid.at(edge.i, edge.j + 1);
        return (level - a0) / (a1 - a0);
    }

    GridPoint crossing(const GridEdge& edge) const {
        const float column = static_cast<float>(edge.i + 1);
        const float row = static_cast<float>(edge.j + 1);
        const float along = fraction(edge);
        return edge.alongRow ? GridPoint{column + along, row} : GridPoint{column, row + along};
    }

    SaddleLengths saddleLengths(const Cell& cell) const {
        const double bottom = fraction(cell.edge(Side::bottom));
        const double right = fraction(cell.edge(Side::right));
        const double top = fraction(cell.edge(Side::top));
        const double left = fraction(cell.edge(Side::left));
        // Not std::hypot: its last bit differs between C libraries.
        const auto length = [](double x, double y) { return std::sqrt(x * x + y * y); };
        return {length(bottom, left) + length(1.0 - right, 1.0 - top),
                length(1.0 - bottom, right) + length(1.0 - left, top)};
    }
};

}  // namespace velmar::grid
