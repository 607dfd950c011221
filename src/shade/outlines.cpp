#include "shade/outlines.h"

#include <bit>
#include <cstdint>
#include <limits>
#include <utility>

#include "base/threads.h"
#include "grid/bitPlane.h"
#include "grid/levelCurve.h"
#include "grid/levelIndex.h"

namespace velmar::shade {
namespace {

using grid::BitPlane;
using grid::Cell;
using grid::Edge;
using grid::LevelIndex;
using grid::nextColumn;
using grid::Pairing;
using grid::previousColumn;
using grid::Side;
using Word = std::uint64_t;

/// A direction along grid lines, counter-clockwise.
enum class Heading : unsigned { east, north, west, south };

constexpr Heading turned(Heading heading, unsigned quartersLeft) {
    return static_cast<Heading>((static_cast<unsigned>(heading) + quartersLeft) % 4);
}

/// A grid point and the direction in which it has been reached.
struct Arrival {
    int i;
    int j;
    Heading heading;
};

/// The cells ahead of a walker at a grid point.
Cell aheadLeft(const Arrival& at) {
    const bool eastward = at.heading == Heading::east || at.heading == Heading::south;
    const bool northward = at.heading == Heading::east || at.heading == Heading::north;
    return {eastward ? at.i : at.i - 1, northward ? at.j : at.j - 1};
}
Cell aheadRight(const Arrival& at) { return aheadLeft({at.i, at.j, turned(at.heading, 3)}); }

/// The side that leads on from there.
Edge nextSide(const Arrival& at) {
    const bool alongRow = at.heading == Heading::east || at.heading == Heading::west;
    return {alongRow, at.heading == Heading::west ? at.i - 1 : at.i,
            at.heading == Heading::south ? at.j - 1 : at.j};
}

/// The cells with data at all four corners, a bit each, at the place of the lower-numbered one.
BitPlane definedCells(const LevelIndex& index) {
    const grid::GridView& grid = index.grid();
    BitPlane cells(grid.nx, grid.ny);
    for (int j = 0; j + 1 < grid.ny; ++j) {
        const std::span<const Word> lower = index.defined(j);
        const std::span<const Word> upper = index.defined(j + 1);
        for (std::size_t w = 0; w < lower.size(); ++w)
            cells.row(j)[w] = lower[w] & upper[w] & nextColumn(lower, w) & nextColumn(upper, w);
    }
    return cells;
}

/// Follows the outlines of one level.
///
/// Sides of cells are of two kinds: those that the level crosses, and those along the edge of the data with both ends
/// above. Outlines pass each of them once, with the high ground on their left, so that each leads to one other.
class OutlineTracer {
public:
    OutlineTracer(const LevelIndex& index, const BitPlane& cells, float level)
        : curve_{index.grid(), level}, cells_(cells) {
        markSides(index);
    }

    AreaOutlines traceAll();

private:
    void markSides(const LevelIndex& index);
    void traceFrom(const Edge& start);
    Edge pass(const Edge& side);
    Edge leave(const Cell& cell, Side entry) const;
    Edge followEdge(const Edge& side);
    void endRing();

    bool isDefined(const Cell& cell) const {
        return cell.i >= 0 && cell.j >= 0 && cells_.test(cell.i, cell.j);
    }
    bool isAbove(int i, int j) const { return curve_.grid.at(i, j) > curve_.level; }
    bool startsAbove(const Edge& side) const { return isAbove(side.i, side.j); }
    bool endsAbove(const Edge& side) const {
        return side.alongRow ? isAbove(side.i + 1, side.j) : isAbove(side.i, side.j + 1);
    }
    BitPlane& sidesLike(const Edge& side) { return side.alongRow ? alongRow_ : alongColumn_; }

    const grid::LevelCurve curve_;
    const BitPlane& cells_;
    BitPlane alongRow_;  ///< sides that no outline has passed yet
    BitPlane alongColumn_;
    AreaOutlines outlines_;
};

void OutlineTracer::markSides(const LevelIndex& index) {
    const auto [values, nx, ny] = index.grid();
    alongRow_.resize(nx, ny);
    alongColumn_.resize(nx, ny);
    const std::size_t words = index.wordsPerRow();
    const std::vector<Word> none(words);
    std::vector<Word> above(words);
    std::vector<Word> aboveNext(words);
    index.classifyRow(0, curve_.level, above);
    for (int j = 0; j < ny; ++j) {
        if (j + 1 < ny) index.classifyRow(j + 1, curve_.level, aboveNext);
        const std::span<const Word> here(cells_.row(j), words);
        const std::span<const Word> below = j > 0 ? std::span(cells_.row(j - 1), words) : none;
        for (std::size_t w = 0; w < words; ++w) {
            const Word east = nextColumn(above, w);
            const Word west = previousColumn(here, w);
            const auto sides = [](Word cell, Word other, Word end, Word otherEnd) {
                return ((cell | other) & (end ^ otherEnd)) | ((cell ^ other) & end & otherEnd);
            };
            alongRow_.row(j)[w] = sides(here[w], below[w], above[w], east);
            alongColumn_.row(j)[w] = sides(here[w], west, above[w], aboveNext[w]);
        }
        above.swap(aboveNext);
    }
}

AreaOutlines OutlineTracer::traceAll() {
    for (int j = 0; j < curve_.grid.ny; ++j) {
        const Word* const rowSides = alongRow_.row(j);
        const Word* const columnSides = alongColumn_.row(j);
        for (std::size_t w = 0; w < alongRow_.wordsPerRow(); ++w) {
            while (const Word left = rowSides[w] | columnSides[w]) {
                const int i = static_cast<int>(w) * BitPlane::wordBits + std::countr_zero(left);
                traceFrom({alongRow_.test(i, j), i, j});
            }
        }
    }
    return std::move(outlines_);
}

void OutlineTracer::traceFrom(const Edge& start) {
    Edge side = start;
    do side = pass(side);
    while (!(side == start));
    endRing();
}

/// Passes a side; returns the next one.
Edge OutlineTracer::pass(const Edge& side) {
    const auto [alongRow, i, j] = side;
    sidesLike(side).clear(i, j);
    const bool startAbove = startsAbove(side);
    if (startAbove == endsAbove(side)) return followEdge(side);

    const float along = curve_.fraction(side);
    const auto column = static_cast<float>(i);
    const auto row = static_cast<float>(j);
    const Cell lower = alongRow ? Cell{i, j - 1} : Cell{i - 1, j};
    const bool onEdge = isDefined({i, j}) != isDefined(lower);
    outlines_.points.push_back({alongRow ? column + along : column, alongRow ? row : row + along, onEdge});

    // The high ground is to the left of an outline that passes a side along a row northward if that starts above.
    const bool upward = alongRow == startAbove;
    const Cell ahead = upward ? Cell{i, j} : lower;
    if (!isDefined(ahead)) return followEdge(side);
    if (alongRow) return leave(ahead, upward ? Side::bottom : Side::top);
    return leave(ahead, upward ? Side::left : Side::right);
}

/// The side through which the level leaves a cell.
Edge OutlineTracer::leave(const Cell& cell, Side entry) const {
    const auto [i, j] = cell;
    const unsigned above = (isAbove(i, j) ? 1U : 0U) | (isAbove(i + 1, j) ? 2U : 0U) |
                           (isAbove(i + 1, j + 1) ? 4U : 0U) | (isAbove(i, j + 1) ? 8U : 0U);
    const unsigned exits = grid::crossedSides(above) & ~grid::bit(entry);
    const bool saddle = (exits & (exits - 1)) != 0;
    if (!saddle) return cell.edge(static_cast<Side>(std::countr_zero(exits)));
    const auto [bottomWithLeft, bottomWithRight] = curve_.saddleLengths(cell);
    const Pairing pairing =
        bottomWithLeft < bottomWithRight ? Pairing::bottomWithLeft : Pairing::bottomWithRight;
    return cell.edge(partner(pairing, entry));
}

/// Walks along a side on the edge of the data, with the cell that has data on the left, to its end, which is above;
/// returns the side that follows. Where two cells meet in a corner only, the walk stays with the one that it follows.
Edge OutlineTracer::followEdge(const Edge& side) {
    const auto [alongRow, i, j] = side;
    const bool cellIsUpper = isDefined({i, j});
    Arrival at{i, j, {}};
    if (alongRow) {
        at.heading = cellIsUpper ? Heading::east : Heading::west;
        at.i += cellIsUpper ? 1 : 0;
    } else {
        at.heading = cellIsUpper ? Heading::south : Heading::north;
        at.j += cellIsUpper ? 0 : 1;
    }
    if (!isDefined(aheadLeft(at))) {
        at.heading = turned(at.heading, 1);
    } else if (isDefined(aheadRight(at))) {
        at.heading = turned(at.heading, 3);
    } else {
        return nextSide(at);
    }
    outlines_.points.push_back({static_cast<float>(at.i), static_cast<float>(at.j), true});
    return nextSide(at);
}

void OutlineTracer::endRing() {
    constexpr std::size_t fewest = 3;
    const std::size_t first = outlines_.ends.empty() ? 0 : outlines_.ends.back();
    if (outlines_.points.size() - first < fewest)
        outlines_.points.resize(first);
    else
        outlines_.ends.push_back(outlines_.points.size());
}

}  // namespace

std::vector<AreaOutlines> outlineAreas(const grid::GridView& grid, float missing,
                                       std::span<const float> levels) {
    std::vector<AreaOutlines> areas(levels.size());
    if (grid.nx < 2 || grid.ny < 2) return areas;
    LevelIndex index;
    index.build(grid, {missing, std::numeric_limits<float>::max()});
    const BitPlane cells = definedCells(index);
    const double nanosecondsEach = 0.5 * static_cast<double>(grid.size());
    base::shareWork(levels.size(), nanosecondsEach, [&](std::size_t first, std::size_t last) {
        for (std::size_t k = first; k < last; ++k)
            if (levels[k] < index.highest()) areas[k] = OutlineTracer(index, cells, levels[k]).traceAll();
    });
    return areas;
}

}  // namespace velmar::shade
