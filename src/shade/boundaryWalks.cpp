// The walks of a trace along the strip's edge and along undefined boundaries, from grid point to grid point.
#include <array>

#include "base/messages.h"
#include "base/progress.h"
#include "shade/trace.h"

namespace velmar::shade {

using base::progress;
using grid::Cell;
using grid::GridEdge;
using grid::Side;
namespace messages = base::messages;

namespace {

struct Step {
    int di;
    int dj;
};

constexpr Step stepTo(Direction direction) {
    constexpr std::array<Step, 4> steps{{{1, 0}, {0, 1}, {-1, 0}, {0, -1}}};
    return steps[static_cast<unsigned>(direction)];
}

constexpr Direction turned(Direction direction, Hand hand) {
    return static_cast<Direction>((static_cast<unsigned>(direction) + static_cast<unsigned>(hand)) % 4);
}

constexpr Hand other(Hand hand) { return hand == Hand::left ? Hand::right : Hand::left; }

constexpr bool isAlongRow(Direction direction) {
    return direction == Direction::right || direction == Direction::left;
}

/// Whether a step leads to the next column or row, not to the one before.
constexpr bool ascends(Direction direction) {
    return direction == Direction::right || direction == Direction::up;
}

/// The side between a grid point and its neighbour in a direction.
GridEdge sideFrom(int i, int j, Direction direction) {
    const auto [di, dj] = ascends(direction) ? Step{0, 0} : stepTo(direction);
    return {isAlongRow(direction), i + di, j + dj};
}

/// The side that a walker goes along, as a side of the cell at its hand.
constexpr Side sideAtHand(Direction direction, Hand hand) {
    const auto atLeftHand = static_cast<Side>(direction);
    return hand == Hand::left ? atLeftHand : opposite(atLeftHand);
}

/// The cell that has an edge as this side.
constexpr Cell cellWith(Side side, const GridEdge& edge) {
    return {edge.i - (side == Side::right ? 1 : 0), edge.j - (side == Side::top ? 1 : 0)};
}

}  // namespace

SideFlag RegionTracer::flagAhead(Direction direction) const {
    return buffers_.sides.flag(sideFrom(walker_.i, walker_.j, direction));
}

RegionTracer::Next RegionTracer::beginAt(const Walker& walker, Next next) {
    walker_ = walker;
    const Next first = arriveAt(walker.i, walker.j, next);
    start_ = walker;
    return first;
}

/// Turns from a crossed side where the defined cells end towards its end above the level.
RegionTracer::Next RegionTracer::walkToHighEnd(const GridEdge& side) {
    // The defined cell is the one that the walk comes from, or, where a trace starts here, may be the other.
    const Side ofDefined = isDefined(cell_) ? entry_ : opposite(entry_);
    const auto [di, dj] = side.alongRow ? Step{1, 0} : Step{0, 1};
    const bool ascending = isAbove(side.i + di, side.j + dj);
    walker_.direction = side.alongRow ? (ascending ? Direction::right : Direction::left)
                                      : (ascending ? Direction::up : Direction::down);
    walker_.hand = sideAtHand(walker_.direction, Hand::left) == ofDefined ? Hand::left : Hand::right;
    const Next next = isBoundary(buffers_.sides.flag(side)) ? Next::undefinedBoundary : Next::stripEdge;
    return ascending ? arriveAt(side.i + di, side.j + dj, next) : arriveAt(side.i, side.j, next);
}

RegionTracer::Next RegionTracer::walkStripEdge() {
    Direction ahead = walker_.direction;
    const auto [di, dj] = stepTo(ahead);
    const int i = walker_.i + di;
    const int j = walker_.j + dj;
    const bool atCorner = i < 0 || i == grid_.nx || j < strip_.jmin || j > strip_.jmax;
    if (atCorner) ahead = turned(ahead, walker_.hand);
    if (flagAhead(ahead) == SideFlag::blocked) {
        ahead = turned(ahead, walker_.hand);
        if (!isBoundary(flagAhead(ahead))) {
            progress(messages::boundaryForks);
            return Next::failure;
        }
    }
    return stepAlong(ahead);
}

RegionTracer::Next RegionTracer::walkUndefinedBoundary() {
    const auto [i, j, direction, hand] = walker_;
    const bool innerColumn = 0 < i && i < grid_.nx - 1;
    const bool innerRow = strip_.jmin < j && j < strip_.jmax;
    if (isAlongRow(direction) ? !innerRow : !innerColumn) {
        progress(messages::boundaryOutside);
        return Next::failure;
    }
    if (innerColumn && innerRow) {
        const std::optional<Direction> ahead = chooseBoundarySide();
        return ahead ? stepAlong(*ahead) : Next::failure;
    }
    // Of the two sides of the strip's edge that meet here, the one at hand has the cell that the walk
    // follows.
    const Direction ahead = turned(direction, hand);
    const bool goesOn = flagAhead(ahead) != SideFlag::blocked;
    if (!goesOn || flagAhead(turned(direction, other(hand))) != SideFlag::blocked) {
        progress(messages::stripEdgeContradicts);
        return Next::failure;
    }
    return stepAlong(ahead);
}

/// The side on which an undefined boundary goes on from an inner point.
std::optional<Direction> RegionTracer::chooseBoundarySide() const {
    const auto [i, j, direction, hand] = walker_;
    int count = 0;
    Direction only = direction;
    for (const Direction ahead : {turned(direction, hand), direction, turned(direction, other(hand))}) {
        if (!isBoundary(flagAhead(ahead))) continue;
        ++count;
        only = ahead;
    }
    if (count == 1) return only;
    if (count != 3) {
        progress(messages::boundaryForks);
        return std::nullopt;
    }
    const DiagonalCase diagonal = diagonalAt(i, j);
    if (diagonal == DiagonalCase::contradiction) return std::nullopt;
    // The walk stays with the defined cell that it follows. Where the defined cells are the upper left and
    // the lower right one, that is a turn to the left on a walk along a row, to the right along a column.
    const Hand turn =
        (diagonal == DiagonalCase::risingUndefined) == isAlongRow(direction) ? Hand::left : Hand::right;
    if (turn != hand) {
        progress(messages::diagonalContradicts);
        return std::nullopt;
    }
    return turned(direction, turn);
}

/// Which cells are undefined where two of them touch at an inner point only.
DiagonalCase RegionTracer::diagonalAt(int i, int j) const {
    if (i < 1 || i > grid_.nx - 2 || j < 1 || j > grid_.ny - 2) {
        progress(messages::diagonalOutside);
        return DiagonalCase::contradiction;
    }
    const auto defined = [&](int di, int dj) { return index_.hasData(i + di, j + dj); };
    const bool rising = !defined(-1, -1) && !defined(1, 1);
    const bool falling = !defined(1, -1) && !defined(-1, 1);
    if (rising && defined(1, -1) && defined(-1, 1)) return DiagonalCase::risingUndefined;
    if (falling && defined(-1, -1) && defined(1, 1)) return DiagonalCase::fallingUndefined;
    progress(messages::noDiagonal);
    return DiagonalCase::contradiction;
}

/// Goes along a side to its far end if that is above the level, else through it into the cell at hand.
RegionTracer::Next RegionTracer::stepAlong(Direction direction) {
    walker_.direction = direction;
    const GridEdge side = sideFrom(walker_.i, walker_.j, direction);
    const auto [di, dj] = stepTo(direction);
    const int i = walker_.i + di;
    const int j = walker_.j + dj;
    const bool undefined = isBoundary(buffers_.sides.flag(side));
    if (!isAbove(i, j)) {
        entry_ = sideAtHand(direction, walker_.hand);
        cell_ = cellWith(entry_, side);
        offBoundary_ = undefined;
        return Next::cells;
    }
    buffers_.sides.setWalked(side);
    return arriveAt(i, j, undefined ? Next::undefinedBoundary : Next::stripEdge);
}

/// Adds the grid point that the walk has reached. A trace that began there is closed.
RegionTracer::Next RegionTracer::arriveAt(int i, int j, Next next) {
    walker_.i = i;
    walker_.j = j;
    touchedBoundary_ = true;
    if (!addPoint({static_cast<float>(i + 1), static_cast<float>(j + 1)})) return Next::failure;
    return start_ && start_->i == i && start_->j == j ? Next::finish : next;
}

}  // namespace velmar::shade
