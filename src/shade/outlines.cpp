#include "shade/outlines.h"

#include <algorithm>
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
using grid::GridEdge;
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

/// The end of a side along the edge of the data, reached with the cell that has data on the left.
Arrival endOfWalk(const GridEdge& side, bool upperCellHasData) {
    const auto [alongRow, i, j] = side;
    if (alongRow) return upperCellHasData ? Arrival{i + 1, j, Heading::east} : Arrival{i, j, Heading::west};
    return upperCellHasData ? Arrival{i, j, Heading::south} : Arrival{i, j + 1, Heading::north};
}

/// The side that leads on from there.
GridEdge nextSide(const Arrival& at) {
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

/// A place where an outline passes a side: the crossing of one of the bounds or, of a side along the edge of the data
/// that lies in the band from end to end, the whole of it, which counts with the lower bound.
struct Passage {
    GridEdge side;
    bool ofUpper;

    bool operator==(const Passage&) const = default;
};

/// Follows the outlines of one band, the band on the left. Each place where an outline passes a side leads to one other,
/// so that every outline comes back to its start.
class OutlineTracer {
public:
    OutlineTracer(const LevelIndex& index, const BitPlane& cells, const ValueBand& band)
        : band_(band), grid_(index.grid()), cells_(cells) {
        markPassages(index);
    }

    AreaOutlines traceAll();

private:
    /// Places on the sides along rows and on those along columns, a bit each.
    struct Passages {
        BitPlane alongRow;
        BitPlane alongColumn;
    };

    void markPassages(const LevelIndex& index);
    void traceFrom(const Passage& start);
    Passage pass(const Passage& passage);
    Passage passCrossing(const Passage& passage, bool startAbove);
    GridEdge leave(const Cell& cell, Side entry, float level) const;
    Passage followEdge(const GridEdge& side);
    void endRing();

    bool isDefined(const Cell& cell) const {
        return cell.i >= 0 && cell.j >= 0 && cells_.test(cell.i, cell.j);
    }
    float startOf(const GridEdge& side) const { return grid_.at(side.i, side.j); }
    float endOf(const GridEdge& side) const {
        return side.alongRow ? grid_.at(side.i + 1, side.j) : grid_.at(side.i, side.j + 1);
    }
    Passages& passagesOf(bool ofUpper) { return ofUpper ? upper_ : lower_; }

    const ValueBand band_;
    const grid::GridView grid_;
    const BitPlane& cells_;
    Passages lower_;  ///< that no outline has passed yet
    Passages upper_;
    AreaOutlines outlines_;
};

void OutlineTracer::markPassages(const LevelIndex& index) {
    const auto [values, nx, ny] = index.grid();
    const std::size_t words = index.wordsPerRow();
    const std::vector<Word> none(words);
    struct RowPair {
        std::vector<Word> here;
        std::vector<Word> next;
    };
    RowPair aboveLower{none, none};
    RowPair aboveUpper{none, none};
    const auto classify = [&](int j, bool next) {
        index.classifyRow(j, band_.lower, next ? aboveLower.next : aboveLower.here);
        index.classifyRow(j, band_.upper, next ? aboveUpper.next : aboveUpper.here);
    };
    for (Passages* const passages : {&lower_, &upper_}) {
        passages->alongRow.resize(nx, ny);
        passages->alongColumn.resize(nx, ny);
    }
    classify(0, false);
    for (int j = 0; j < ny; ++j) {
        if (j + 1 < ny) classify(j + 1, true);
        const std::span<const Word> cells(cells_.row(j), words);
        const std::span<const Word> below = j > 0 ? std::span(cells_.row(j - 1), words) : none;
        const auto& [low, lowNext] = aboveLower;
        const auto& [high, highNext] = aboveUpper;
        for (std::size_t w = 0; w < words; ++w) {
            const Word lowEast = nextColumn(low, w);
            const Word highEast = nextColumn(high, w);
            const Word west = previousColumn(cells, w);
            const Word inBand = low[w] & ~high[w];
            const Word rowSides = cells[w] | below[w];
            const Word columnSides = cells[w] | west;
            lower_.alongRow.row(j)[w] =
                (rowSides & (low[w] ^ lowEast)) | ((cells[w] ^ below[w]) & inBand & lowEast & ~highEast);
            lower_.alongColumn.row(j)[w] = (columnSides & (low[w] ^ lowNext[w])) |
                                           ((cells[w] ^ west) & inBand & lowNext[w] & ~highNext[w]);
            upper_.alongRow.row(j)[w] = rowSides & (high[w] ^ highEast);
            upper_.alongColumn.row(j)[w] = columnSides & (high[w] ^ highNext[w]);
        }
        aboveLower.here.swap(aboveLower.next);
        aboveUpper.here.swap(aboveUpper.next);
    }
}

AreaOutlines OutlineTracer::traceAll() {
    for (int j = 0; j < grid_.ny; ++j) {
        for (std::size_t w = 0; w < cells_.wordsPerRow(); ++w) {
            for (const bool ofUpper : {false, true}) {
                const auto& [alongRow, alongColumn] = passagesOf(ofUpper);
                while (const Word left = alongRow.row(j)[w] | alongColumn.row(j)[w]) {
                    const int i = static_cast<int>(w) * BitPlane::wordBits + std::countr_zero(left);
                    traceFrom({{alongRow.test(i, j), i, j}, ofUpper});
                }
            }
        }
    }
    return std::move(outlines_);
}

void OutlineTracer::traceFrom(const Passage& start) {
    Passage passage = start;
    do passage = pass(passage);
    while (!(passage == start));
    endRing();
}

/// Passes a side; returns where the outline leads from there.
Passage OutlineTracer::pass(const Passage& passage) {
    const GridEdge& side = passage.side;
    auto& [alongRow, alongColumn] = passagesOf(passage.ofUpper);
    (side.alongRow ? alongRow : alongColumn).clear(side.i, side.j);
    const float level = passage.ofUpper ? band_.upper : band_.lower;
    const bool startAbove = startOf(side) > level;
    const bool isCrossed = startAbove != (endOf(side) > level);
    return isCrossed ? passCrossing(passage, startAbove) : followEdge(side);
}

Passage OutlineTracer::passCrossing(const Passage& passage, bool startAbove) {
    const auto& [side, ofUpper] = passage;
    const auto [alongRow, i, j] = side;
    const float level = ofUpper ? band_.upper : band_.lower;
    const Cell upperCell{i, j};
    const Cell lowerCell = alongRow ? Cell{i, j - 1} : Cell{i - 1, j};
    const float along = grid::LevelCurve{grid_, level}.fraction(side);
    const auto column = static_cast<float>(i);
    const auto row = static_cast<float>(j);
    const bool onEdge = isDefined(upperCell) != isDefined(lowerCell);
    outlines_.points.push_back({alongRow ? column + along : column, alongRow ? row : row + along, onEdge});

    // To have the high ground on the left, an outline leads up through a side along a row that starts above.
    const bool upward = (alongRow == startAbove) != ofUpper;
    const Cell ahead = upward ? upperCell : lowerCell;
    if (isDefined(ahead)) {
        const Side entry =
            alongRow ? (upward ? Side::bottom : Side::top) : (upward ? Side::left : Side::right);
        return {leave(ahead, entry, level), ofUpper};
    }
    // Along the edge of the data, as far as the other bound if that lies on the same side.
    const float start = startOf(side);
    const float end = endOf(side);
    const bool meetsOther =
        ofUpper ? !(std::min(start, end) > band_.lower) : std::max(start, end) > band_.upper;
    if (meetsOther) return {side, !ofUpper};
    return followEdge(side);
}

/// The side through which a level leaves a cell.
GridEdge OutlineTracer::leave(const Cell& cell, Side entry, float level) const {
    const auto [i, j] = cell;
    const auto isAbove = [&](int column, int row) { return grid_.at(column, row) > level; };
    const unsigned above = (isAbove(i, j) ? 1U : 0U) | (isAbove(i + 1, j) ? 2U : 0U) |
                           (isAbove(i + 1, j + 1) ? 4U : 0U) | (isAbove(i, j + 1) ? 8U : 0U);
    const unsigned exits = grid::crossedSides(above) & ~grid::bit(entry);
    const bool saddle = (exits & (exits - 1)) != 0;
    if (!saddle) return cell.edge(static_cast<Side>(std::countr_zero(exits)));
    const auto [bottomWithLeft, bottomWithRight] = grid::LevelCurve{grid_, level}.saddleLengths(cell);
    const Pairing pairing =
        bottomWithLeft < bottomWithRight ? Pairing::bottomWithLeft : Pairing::bottomWithRight;
    return cell.edge(partner(pairing, entry));
}

/// Walks along a side on the edge of the data, with the cell that has data on the left, to its end, which lies in the
/// band. Where two cells meet in a corner only, the walk stays with the one that it follows.
Passage OutlineTracer::followEdge(const GridEdge& side) {
    Arrival at = endOfWalk(side, isDefined({side.i, side.j}));
    const Heading before = at.heading;
    if (!isDefined(aheadLeft(at)))
        at.heading = turned(before, 1);
    else if (isDefined(aheadRight(at)))
        at.heading = turned(before, 3);
    if (at.heading != before)
        outlines_.points.push_back({static_cast<float>(at.i), static_cast<float>(at.j), true});
    const GridEdge next = nextSide(at);
    return {next, std::max(startOf(next), endOf(next)) > band_.upper};
}

void OutlineTracer::endRing() {
    constexpr std::size_t fewest = 3;
    const std::size_t first =
        outlines_.runs.empty() ? 0 : outlines_.runs.back().firstPoint + outlines_.runs.back().pointCount;
    const std::size_t count = outlines_.points.size() - first;
    if (count < fewest)
        outlines_.points.resize(first);
    else
        outlines_.runs.push_back({first, count});
}

}  // namespace

std::vector<AreaOutlines> outlineBands(const grid::GridView& grid, float missing,
                                       std::span<const ValueBand> bands) {
    std::vector<AreaOutlines> areas(bands.size());
    if (grid.nx < 2 || grid.ny < 2) return areas;
    LevelIndex index;
    index.build(grid, {missing, std::numeric_limits<float>::max()});
    const BitPlane cells = definedCells(index);
    const double nanosecondsEach = 0.5 * static_cast<double>(grid.size());
    base::shareWork(bands.size(), nanosecondsEach, [&](std::size_t first, std::size_t last) {
        for (std::size_t k = first; k < last; ++k)
            if (bands[k].lower < index.highest()) areas[k] = OutlineTracer(index, cells, bands[k]).traceAll();
    });
    return areas;
}

}  // namespace velmar::shade
