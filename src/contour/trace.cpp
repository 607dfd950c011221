#include "contour/trace.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

namespace velmar::contour {

namespace {

using frame::GridView;

enum class Side : unsigned { bottom, right, top, left };

constexpr unsigned bit(Side side) { return 1U << static_cast<unsigned>(side); }

/// A grid cell, named by its lower-numbered corner.
struct Cell {
    int i;
    int j;
};

/// A grid edge, named by its lower-numbered end.
struct Edge {
    bool alongRow;
    int i;
    int j;

    bool operator==(const Edge&) const = default;
};

/// How a side leads from a cell to the next one and where its edge is.
struct SideStep {
    int di;
    int dj;
    Side entry;  ///< the side through which the next cell is entered
    bool alongRow;
    int edgeDi;
    int edgeDj;
};

constexpr std::array<SideStep, 4> sideSteps{{
    {0, -1, Side::top, true, 0, 0},     // bottom
    {1, 0, Side::left, false, 1, 0},    // right
    {0, 1, Side::bottom, true, 0, 1},   // top
    {-1, 0, Side::right, false, 0, 0},  // left
}};

const SideStep& stepThrough(Side side) { return sideSteps[static_cast<unsigned>(side)]; }

/// The two ways to connect the four crossings of a saddle.
enum class Pairing { bottomWithLeft, bottomWithRight };

constexpr Side partner(Pairing pairing, Side side) {
    constexpr std::array<std::array<Side, 4>, 2> partners{{
        {Side::left, Side::top, Side::right, Side::bottom},
        {Side::right, Side::bottom, Side::left, Side::top},
    }};
    return partners[static_cast<unsigned>(pairing)][static_cast<unsigned>(side)];
}

/// How many points a line may have on either side of its start.
struct WalkRoom {
    std::size_t forward;
    std::size_t backward;
};

/// Two floats a point, from the middle of the work buffer outward; the last four floats at either end stay
/// free.
WalkRoom walkRoom(std::size_t workBufferFloats) {
    const std::size_t middle = workBufferFloats / 2 / 2 * 2;
    return {(workBufferFloats - 6 - middle) / 2, (middle - 4) / 2};
}

/// Traces one level. The marks of the edges that lines pass are used up.
class LevelTracer {
public:
    LevelTracer(float level, TraceBuffers& buffers, LineList& lines)
        : grid_(buffers.index.grid()),
          level_(level),
          room_(walkRoom(buffers.workBufferFloats)),
          buffers_(buffers),
          marks_(buffers.crossings),
          lines_(lines) {}

    void traceAll();

private:
    void traceFrom(const Edge& start);
    bool walk(Cell cell, Side entry, const Edge& start, std::size_t room, std::vector<Point>& points);
    unsigned markedSides(const Cell& cell) const;
    Pairing pairingOf(const Cell& cell) const;
    void clearMark(const Edge& edge) {
        (edge.alongRow ? marks_.alongRow : marks_.alongColumn).clear(edge.i, edge.j);
    }
    float fraction(const Edge& edge) const;
    Point crossing(const Edge& edge) const;

    GridView grid_;
    float level_;
    WalkRoom room_;
    TraceBuffers& buffers_;
    Crossings& marks_;
    LineList& lines_;
};

void LevelTracer::traceAll() {
    constexpr int wordBits = BitPlane::wordBits;
    const std::size_t words = marks_.alongRow.wordsPerRow();
    const std::uint64_t lastColumn = std::uint64_t{1} << ((grid_.nx - 1) % wordBits);
    for (int j = 0; j + 1 < grid_.ny; ++j) {
        const std::uint64_t* const rowEdges = marks_.alongRow.row(j);
        const std::uint64_t* const columnEdges = marks_.alongColumn.row(j);
        for (std::size_t w = 0; w < words; ++w) {
            const std::uint64_t starts = w + 1 == words ? lastColumn - 1 : ~std::uint64_t{0};
            while (const std::uint64_t marked = (rowEdges[w] | columnEdges[w]) & starts) {
                const int i = static_cast<int>(w) * wordBits + std::countr_zero(marked);
                traceFrom({marks_.alongRow.test(i, j), i, j});
            }
        }
    }
}

void LevelTracer::traceFrom(const Edge& start) {
    std::vector<Point>& forward = buffers_.forward;
    std::vector<Point>& backward = buffers_.backward;
    forward.clear();
    backward.clear();

    // The start's mark stays until the first walk is over, so that a ring finds back to it, through a saddle
    // too.
    const Side below = start.alongRow ? Side::bottom : Side::left;
    const SideStep& back = stepThrough(below);
    const bool closed = walk({start.i, start.j}, below, start, room_.forward, forward);
    clearMark(start);
    walk({start.i + back.di, start.j + back.dj}, back.entry, start, room_.backward, backward);

    const Point first = crossing(start);
    if (closed) forward.push_back(first);
    std::vector<Point>& points = lines_.points;
    lines_.lines.push_back({level_, points.size(), backward.size() + 1 + forward.size()});
    points.insert(points.end(), backward.rbegin(), backward.rend());
    points.push_back(first);
    points.insert(points.end(), forward.begin(), forward.end());
}

/// Follows the line from the cell that it enters, adding the points behind the entry. Returns whether it came
/// back to its start.
bool LevelTracer::walk(Cell cell, Side entry, const Edge& start, std::size_t room,
                       std::vector<Point>& points) {
    while (cell.i >= 0 && cell.j >= 0 && cell.i + 1 < grid_.nx && cell.j + 1 < grid_.ny) {
        const unsigned exits = markedSides(cell) & ~bit(entry);
        if (exits == 0) return false;
        const bool saddle = !std::has_single_bit(exits);
        const Side exit =
            saddle ? partner(pairingOf(cell), entry) : static_cast<Side>(std::countr_zero(exits));
        // In a saddle the way on may be gone: a line that was cut short has used it up.
        if ((exits & bit(exit)) == 0) return false;

        const SideStep& step = stepThrough(exit);
        const Edge edge{step.alongRow, cell.i + step.edgeDi, cell.j + step.edgeDj};
        if (edge == start) return true;
        if (points.size() == room) return false;
        clearMark(edge);
        points.push_back(crossing(edge));
        cell = {cell.i + step.di, cell.j + step.dj};
        entry = step.entry;
    }
    return false;
}

unsigned LevelTracer::markedSides(const Cell& cell) const {
    const auto [i, j] = cell;
    return (marks_.alongRow.test(i, j) ? bit(Side::bottom) : 0U) |
           (marks_.alongColumn.test(i + 1, j) ? bit(Side::right) : 0U) |
           (marks_.alongRow.test(i, j + 1) ? bit(Side::top) : 0U) |
           (marks_.alongColumn.test(i, j) ? bit(Side::left) : 0U);
}

Pairing LevelTracer::pairingOf(const Cell& cell) const {
    const auto [i, j] = cell;
    const double bottom = fraction({true, i, j});
    const double right = fraction({false, i + 1, j});
    const double top = fraction({true, i, j + 1});
    const double left = fraction({false, i, j});
    const auto length = [](double x, double y) { return std::sqrt(x * x + y * y); };
    const double withLeft = length(bottom, left) + length(1.0 - right, 1.0 - top);
    const double withRight = length(1.0 - bottom, right) + length(1.0 - left, top);
    return withLeft < withRight ? Pairing::bottomWithLeft : Pairing::bottomWithRight;
}

/// Where the level lies on an edge, from 0 at its lower-numbered end to 1.
float LevelTracer::fraction(const Edge& edge) const {
    const float a0 = grid_.at(edge.i, edge.j);
    const float a1 = edge.alongRow ? grid_.at(edge.i + 1, edge.j) : grid_.at(edge.i, edge.j + 1);
    return (level_ - a0) / (a1 - a0);
}

Point LevelTracer::crossing(const Edge& edge) const {
    const float column = static_cast<float>(edge.i + 1);
    const float row = static_cast<float>(edge.j + 1);
    const float along = fraction(edge);
    return edge.alongRow ? Point{column + along, row} : Point{column, row + along};
}

}  // namespace

void traceLevels(const GridView& grid, float missing, std::span<const float> levels, TraceBuffers& buffers,
                 LineList& lines) {
    if (levels.empty() || grid.nx < 2 || grid.ny < 2) return;
    const std::size_t bordered =
        (static_cast<std::size_t>(grid.nx) + 2) * (static_cast<std::size_t>(grid.ny) + 2);
    buffers.workBufferFloats = std::max(buffers.workBufferFloats, bordered);
    buffers.index.build(grid, missing);
    for (const float level : levels) {
        if (!buffers.index.reaches(level)) continue;
        buffers.crossings.mark(buffers.index, level);
        LevelTracer(level, buffers, lines).traceAll();
    }
}

}  // namespace velmar::contour
