#include "contour/trace.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "base/threads.h"
#include "grid/levelCurve.h"

namespace velmar::contour {

namespace {

using grid::bit;
using grid::BitPlane;
using grid::Cell;
using grid::GridEdge;
using grid::GridPoint;
using grid::GridView;
using grid::LevelCurve;
using grid::Pairing;
using grid::Side;

/// How many points a line may have on either side of its start.
struct WalkRoom {
    std::size_t forward;
    std::size_t backward;
};

/// Two floats a point, from the middle of the work buffer outward; the last four floats at either end remain
/// unused.
WalkRoom walkRoom(std::size_t workBufferFloats) {
    const std::size_t middle = workBufferFloats / 2 / 2 * 2;
    return {(workBufferFloats - 6 - middle) / 2, (middle - 4) / 2};
}

/// Traces one level. The mark of an edge is cleared when a line passes it.
class LevelTracer {
public:
    LevelTracer(const LevelCurve& curve, const WalkRoom& room, LevelBuffers& buffers, ContourLines& lines)
        : curve_(curve), room_(room), buffers_(buffers), marks_(buffers.crossings), lines_(lines) {}

    void traceAll();

private:
    void traceFrom(const GridEdge& start);
    bool walk(Cell cell, Side entry, const GridEdge& start, std::size_t room, std::vector<GridPoint>& points);
    unsigned markedSides(const Cell& cell) const;
    Pairing pairingOf(const Cell& cell) const;
    void clearMark(const GridEdge& edge) {
        (edge.alongRow ? marks_.alongRow : marks_.alongColumn).clear(edge.i, edge.j);
    }

    LevelCurve curve_;
    WalkRoom room_;
    LevelBuffers& buffers_;
    Crossings& marks_;
    ContourLines& lines_;
};

void LevelTracer::traceAll() {
    constexpr int wordBits = BitPlane::wordBits;
    const std::size_t words = marks_.alongRow.wordsPerRow();
    const std::uint64_t lastColumn = std::uint64_t{1} << ((curve_.grid.nx - 1) % wordBits);
    for (int j = 0; j + 1 < curve_.grid.ny; ++j) {
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

void LevelTracer::traceFrom(const GridEdge& start) {
    std::vector<GridPoint>& forward = buffers_.forward;
    std::vector<GridPoint>& backward = buffers_.backward;
    forward.clear();
    backward.clear();

    // The start edge stays marked until the first walk is over, so that a ring can return to it, even through a
    // saddle.
    const Side below = start.alongRow ? Side::bottom : Side::left;
    const Cell first{start.i, start.j};
    const bool closed = walk(first, below, start, room_.forward, forward);
    clearMark(start);
    walk(first.neighbour(below), opposite(below), start, room_.backward, backward);

    const GridPoint from = curve_.crossing(start);
    if (closed) forward.push_back(from);
    std::vector<GridPoint>& points = lines_.points;
    lines_.runs.push_back({{points.size(), backward.size() + 1 + forward.size()}, curve_.level});
    points.insert(points.end(), backward.rbegin(), backward.rend());
    points.push_back(from);
    points.insert(points.end(), forward.begin(), forward.end());
}

/// Follows the line from the cell that it enters, adding the points after the entry. Returns whether it came
/// back to its start.
bool LevelTracer::walk(Cell cell, Side entry, const GridEdge& start, std::size_t room,
                       std::vector<GridPoint>& points) {
    while (cell.i >= 0 && cell.j >= 0 && cell.i + 1 < curve_.grid.nx && cell.j + 1 < curve_.grid.ny) {
        const unsigned exits = markedSides(cell) & ~bit(entry);
        if (exits == 0) return false;
        const bool saddle = (exits & (exits - 1)) != 0;
        const Side exit =
            saddle ? partner(pairingOf(cell), entry) : static_cast<Side>(std::countr_zero(exits));
        // In a saddle the exit may already be cleared: a line that was cut short has passed it.
        if ((exits & bit(exit)) == 0) return false;

        const GridEdge edge = cell.edge(exit);
        if (edge == start) return true;
        if (points.size() == room) return false;
        clearMark(edge);
        points.push_back(curve_.crossing(edge));
        cell = cell.neighbour(exit);
        entry = opposite(exit);
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
    const auto [bottomWithLeft, bottomWithRight] = curve_.saddleLengths(cell);
    return bottomWithLeft < bottomWithRight ? Pairing::bottomWithLeft : Pairing::bottomWithRight;
}

}  // namespace

void traceLevels(const GridView& grid, float missing, std::span<const float> levels, ContourBuffers& buffers,
                 ContourLines& lines) {
    if (levels.empty() || grid.size() == 0) return;
    const std::size_t bordered =
        (static_cast<std::size_t>(grid.nx) + 2) * (static_cast<std::size_t>(grid.ny) + 2);
    buffers.workBufferFloats = std::max(buffers.workBufferFloats, bordered);
    if (grid.nx < 2 || grid.ny < 2) return;
    buffers.index.build(grid, {missing});
    const WalkRoom room = walkRoom(buffers.workBufferFloats);
    const auto traceRun = [&](std::span<const float> run, LevelBuffers& work, ContourLines& into) {
        for (const float level : run) {
            if (!buffers.index.reaches(level)) continue;
            work.crossings.mark(buffers.index, level);
            LevelTracer({grid, level}, room, work, into).traceAll();
        }
    };
    // The first levels go straight into the list, the others into lists of their own.
    const double nanosecondsEach = 0.3 * static_cast<double>(grid.size());
    const auto others =
        base::collectWork(levels.size(), nanosecondsEach, [&](std::size_t first, std::size_t last) {
            const std::span<const float> run = levels.subspan(first, last - first);
            ContourLines own;
            LevelBuffers ownWork;
            traceRun(run, first == 0 ? buffers.work : ownWork, first == 0 ? lines : own);
            return own;
        });
    for (const auto& [first, list] : others) lines.append(list);
}

}  // namespace velmar::contour
