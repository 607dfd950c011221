#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "grid/bitPlane.h"
#include "grid/levelCurve.h"
#include "grid/levelIndex.h"
#include "shade/polygons.h"
#include "shade/sideFlags.h"

namespace velmar::shade {

/// What the levels of a strip are traced in.
struct StripBuffers {
    grid::BitPlane above;  ///< points with data that lie above the level
    StripSides sides;
    std::vector<grid::GridPoint> outline;  ///< of the polygon that is being traced
    HoleStack holeStack;

    /// Takes up a strip: finds its undefined boundaries.
    void begin(const grid::LevelIndex& index, const Strip& strip) {
        sides.resize(index.grid().nx, strip);
        sides.markUndefinedSides(index, strip);
        above.resize(index.grid().nx, strip.rows(), strip.jmin);
    }
    /// Takes up a level of it: finds the points above, and no side has been walked yet.
    void beginLevel(const grid::LevelIndex& index, const Strip& strip, float level) {
        for (int j = strip.jmin; j <= strip.jmax; ++j)
            index.classifyRow(j, level, {above.row(j), above.wordsPerRow()});
        sides.clearWalked(strip);
    }

    /// Size of the memory in use.
    std::size_t bytes() const {
        constexpr std::size_t planes = 8;  // each plane of the sides is as large as that of the points
        return planes * above.bytes() + base::bytesOf(outline) + holeStack.bytes();
    }
};

/// Buffers of the tracing, reused from call to call.
struct ShadeBuffers {
    grid::LevelIndex index;
    StripBuffers strip;

    /// Size of the memory in use.
    std::size_t bytes() const { return index.bytes() + strip.bytes(); }
};

/// A level of a strip and the colours of its polygons.
struct ShadeLevel {
    float level;
    int levelColour;  ///< of the band above the level
    int colourBelow;  ///< of the band below it
};

/// Where a trace starts.
enum class StartKind {
    // through a side of a cell
    cellBottom = 1,
    cellRight = 2,
    cellTop = 3,
    cellLeft = 4,
    // at a point of the strip's edge: to the right along its bottom or top, upward along its left or right
    bottomEdge = 5,
    topEdge = 6,
    leftEdge = 7,
    rightEdge = 8,
    // at a point of an undefined boundary, having come to the right or upward
    undefinedAlongRow = 9,
    undefinedAlongColumn = 10,
};

/// Columns and rows count from 0.
struct RegionStart {
    StartKind kind;
    int i;
    int j;
};

/// A direction of walking from grid point to grid point, counter-clockwise. A walker along a side of a cell, in the
/// direction of the same number, has that cell on the left hand.
enum class Direction : unsigned { right, up, left, down };

/// On which hand a walker along a boundary has the cells that it follows, as quarter turns to the left.
enum class Hand : unsigned { left = 1, right = 3 };

/// Which pair of the points around a grid point is undefined where two undefined cells touch at that point.
enum class DiagonalCase { risingUndefined = 1, fallingUndefined = 2, contradiction = 9 };

/// Traces the regions of one strip that lie above one level.
///
/// A region's outline follows the level through defined cells (a cell walk), and where the defined part of
/// the strip ends, the edge of the strip or an undefined boundary, from grid point to grid point. The high
/// ground is on the same hand throughout.
class RegionTracer {
public:
    RegionTracer(const grid::LevelIndex& index, const Strip& strip, const ShadeLevel& level,
                 const grid::GridPlace& place, StripBuffers& buffers, ShadePolygons& polygons);

    /// Traces one polygon. High ground is added to the polygons, low ground to the stack of holes. False on
    /// failure, which is reported on standard output unless the point buffer is full.
    [[nodiscard]] bool traceRegion(const RegionStart& start);

private:
    /// What follows a walk.
    enum class Next { cells, stripEdge, undefinedBoundary, finish, failure };

    /// A position on a boundary walk: a grid point and where the walk goes from there.
    struct Walker {
        int i;
        int j;
        Direction direction;
        Hand hand;
    };

    Next begin(const RegionStart& start);
    Next beginAt(const Walker& walker, Next next);
    Next walkCells();
    Next walkStripEdge();
    Next walkUndefinedBoundary();
    bool finish();

    // Cell walk
    bool leaveCell();
    grid::Pairing chooseSaddleExit() const;
    Next walkToHighEnd(const grid::GridEdge& side);

    // Boundary walks
    Next stepAlong(Direction direction);
    Next arriveAt(int i, int j, Next next);
    std::optional<Direction> chooseBoundarySide() const;
    DiagonalCase diagonalAt(int i, int j) const;

    // Finish
    void removeDuplicatePoints();
    bool isHighRegion() const;
    bool pushHole();

    [[nodiscard]] bool addPoint(const grid::GridPoint& point);
    bool isAbove(int i, int j) const { return buffers_.above.test(i, j); }
    bool isInStrip(const grid::Cell& cell) const;
    bool isDefined(const grid::Cell& cell) const {
        return isInStrip(cell) && buffers_.sides.definedCells.test(cell.i, cell.j);
    }
    SideFlag flagAhead(Direction direction) const;

    const grid::LevelIndex& index_;
    const grid::GridView grid_;
    const Strip strip_;
    const ShadeLevel level_;
    const grid::LevelCurve curve_;
    const grid::GridPlace place_;
    StripBuffers& buffers_;
    ShadePolygons& polygons_;

    // The trace in progress.
    StartKind startKind_{};
    std::optional<Walker> start_;  ///< where it began on a boundary
    bool touchedBoundary_ = false;
    grid::Cell cell_{};         ///< a cell walk enters this cell ...
    grid::Side entry_{};        ///< ... through this side ...
    bool offBoundary_ = false;  ///< ... which is part of the undefined boundary that it has followed so far
    Walker walker_{};           ///< a boundary walk is here
};

}  // namespace velmar::shade
