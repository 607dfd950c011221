#include "shade/trace.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <new>

#include "base/messages.h"
#include "base/numbers.h"
#include "base/progress.h"

namespace velmar::shade {

using base::progress;
using base::truncateToInt;
using grid::bit;
using grid::Cell;
using grid::GridEdge;
using grid::GridPoint;
using grid::Pairing;
using grid::Side;
namespace messages = base::messages;

namespace {

int sideNumber(Side side) { return static_cast<int>(side) + 1; }

void reportCellOutside(const Cell& cell, Side entry, int imax, int jmax) {
    progress(messages::cellOutside);
    progress(messages::cellOutsideSide, {sideNumber(entry), cell.i + 1, cell.j + 1});
    if (entry == Side::left) progress(messages::cellOutsideBounds, {imax, jmax});
}

void reportBlockedSide(const Cell& cell, Side entry, StartKind kind) {
    progress(messages::blockedSide, {cell.i + 1, cell.j + 1});
    if (entry != Side::bottom)
        progress(messages::blockedSideEntered, {sideNumber(entry), static_cast<int>(kind)});
}

}  // namespace

RegionTracer::RegionTracer(const grid::LevelIndex& index, const Strip& strip, const ShadeLevel& level,
                           const grid::GridPlace& place, StripBuffers& buffers, ShadePolygons& polygons)
    : index_(index),
      grid_(index.grid()),
      strip_(strip),
      level_(level),
      curve_{grid_, level.level},
      place_(place),
      buffers_(buffers),
      polygons_(polygons) {}

bool RegionTracer::traceRegion(const RegionStart& start) {
    buffers_.outline.clear();
    touchedBoundary_ = false;
    start_.reset();
    offBoundary_ = false;
    Next next = begin(start);
    for (;;) {
        switch (next) {
            case Next::cells:
                next = walkCells();
                break;
            case Next::stripEdge:
                next = walkStripEdge();
                break;
            case Next::undefinedBoundary:
                next = walkUndefinedBoundary();
                break;
            case Next::finish:
                return finish();
            case Next::failure:
                return false;
        }
    }
}

RegionTracer::Next RegionTracer::begin(const RegionStart& start) {
    const auto [kind, i, j] = start;
    startKind_ = kind;
    switch (kind) {
        case StartKind::cellBottom:
        case StartKind::cellRight:
        case StartKind::cellTop:
        case StartKind::cellLeft:
            cell_ = {i, j};
            entry_ = static_cast<Side>(static_cast<unsigned>(kind) - 1);
            return Next::cells;
        case StartKind::bottomEdge:
            return beginAt({i, j, Direction::right, Hand::left}, Next::stripEdge);
        case StartKind::topEdge:
            return beginAt({i, j, Direction::right, Hand::right}, Next::stripEdge);
        case StartKind::leftEdge:
            return beginAt({i, j, Direction::up, Hand::right}, Next::stripEdge);
        case StartKind::rightEdge:
            return beginAt({i, j, Direction::up, Hand::left}, Next::stripEdge);
        case StartKind::undefinedAlongRow:
            return beginAt({i, j, Direction::right, isDefined({i - 1, j}) ? Hand::left : Hand::right},
                           Next::undefinedBoundary);
        case StartKind::undefinedAlongColumn:
            return beginAt({i, j, Direction::up, isDefined({i, j - 1}) ? Hand::right : Hand::left},
                           Next::undefinedBoundary);
    }
    progress(messages::unknownStart);
    return Next::failure;
}

/// Follows the level from cell to cell until it closes or meets a boundary.
RegionTracer::Next RegionTracer::walkCells() {
    for (;;) {
        if (!isInStrip(cell_) && !isInStrip(cell_.neighbour(entry_))) {
            reportCellOutside(cell_, entry_, grid_.nx, strip_.jmax + 1);
            return Next::failure;
        }
        const GridEdge side = cell_.edge(entry_);
        if (!addPoint(curve_.crossing(side))) return Next::failure;
        const SideFlag flag = buffers_.sides.flag(side);
        // A walk that leaves an undefined boundary has yet to pass the crossed side of that boundary.
        if (!offBoundary_) {
            if (flag == SideFlag::traced || flag == SideFlag::walkedBoundary) return Next::finish;
            if (flag == SideFlag::blocked) {
                reportBlockedSide(cell_, entry_, startKind_);
                return Next::failure;
            }
        }
        buffers_.sides.setWalked(side);
        const bool meetsBoundary = (flag == SideFlag::boundary && !offBoundary_) || !isInStrip(cell_);
        offBoundary_ = false;
        if (meetsBoundary) return walkToHighEnd(side);
        if (!leaveCell()) return Next::failure;
    }
}

/// Enters the neighbour beyond the exit. False when there is no defined one.
bool RegionTracer::leaveCell() {
    const auto [i, j] = cell_;
    const unsigned above = (isAbove(i, j) ? 1U : 0U) | (isAbove(i + 1, j) ? 2U : 0U) |
                           (isAbove(i + 1, j + 1) ? 4U : 0U) | (isAbove(i, j + 1) ? 8U : 0U);
    const unsigned exits = grid::crossedSides(above) & ~bit(entry_);
    if (exits == 0) {
        progress(messages::noExit);
        return false;
    }
    const bool saddle = (exits & (exits - 1)) != 0;
    const Side exit =
        saddle ? partner(chooseSaddleExit(), entry_) : static_cast<Side>(std::countr_zero(exits));
    cell_ = cell_.neighbour(exit);
    entry_ = opposite(exit);
    return true;
}

/// Of two pairings of the same length it takes that of the bottom with the right side.
Pairing RegionTracer::chooseSaddleExit() const {
    const auto [bottomWithLeft, bottomWithRight] = curve_.saddleLengths(cell_);
    return bottomWithRight <= bottomWithLeft ? Pairing::bottomWithRight : Pairing::bottomWithLeft;
}

bool RegionTracer::addPoint(const GridPoint& point) {
    std::vector<GridPoint>& outline = buffers_.outline;
    if (outline.size() == grid_.size()) return false;
    outline.push_back(point);
    return true;
}

bool RegionTracer::isInStrip(const Cell& cell) const {
    return cell.i >= 0 && cell.i < grid_.nx - 1 && cell.j >= strip_.jmin && cell.j < strip_.jmax;
}

// What becomes of an outline that has closed.

bool RegionTracer::finish() {
    removeDuplicatePoints();
    const std::vector<GridPoint>& outline = buffers_.outline;
    if (outline.size() < 4) return true;
    // What touches a boundary counts as high whatever lies inside.
    if (!touchedBoundary_ && !isHighRegion()) return pushHole();
    appendShadePolygon(polygons_, outline, place_, level_.level, level_.levelColour);
    return true;
}

void RegionTracer::removeDuplicatePoints() {
    std::vector<GridPoint>& outline = buffers_.outline;
    outline.erase(std::unique(outline.begin(), outline.end()), outline.end());
}

/// Looks at the grid point to the right of the leftmost crossing of a row: it lies inside the outline. Where
/// that crossing is itself a grid point equal to the level, the point after it may not.
bool RegionTracer::isHighRegion() const {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    GridPoint leftmost{infinity, 1.0F};
    for (const GridPoint& point : buffers_.outline) {
        if (point.column < leftmost.column && point.row == std::trunc(point.row)) leftmost = point;
    }
    const int column = std::clamp(truncateToInt(leftmost.column), 0, grid_.nx - 1);
    const int row = std::clamp(truncateToInt(leftmost.row) - 1, 0, grid_.ny - 1);
    return grid_.at(column, row) > level_.level;
}

bool RegionTracer::pushHole() try {
    const std::vector<GridPoint>& outline = buffers_.outline;
    HoleStack& stack = buffers_.holeStack;
    const std::size_t firstPoint = stack.points.size();
    stack.points.insert(stack.points.end(), outline.begin(), outline.end());
    stack.runs.push_back({{firstPoint, outline.size()}, level_.colourBelow});
    if (stack.runs.size() < mostHoles) return true;
    progress(messages::tooManyHoles);
    return false;
} catch (const std::bad_alloc&) {
    progress(messages::noHoleBuffer);
    return false;
}

}  // namespace velmar::shade
