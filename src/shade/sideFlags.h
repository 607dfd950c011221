#pragma once

#include "grid/bitPlane.h"
#include "grid/levelCurve.h"
#include "grid/levelIndex.h"

namespace velmar::shade {

/// The rows that are traced at a time, from the first to the last. Neighbouring strips share a row.
struct Strip {
    int jmin;
    int jmax;

    int rows() const { return jmax - jmin + 1; }
};

/// What has become of a side of a cell while one level of a strip is traced.
enum class SideFlag {
    untouched = 0,  ///< a side of a defined cell
    traced = 1,     ///< a crossing on it is part of a polygon, or, on the strip's edge, it has been walked
    walkedBoundary = 7,  ///< a boundary that has been crossed or walked
    boundary = 8,        ///< a side between a defined cell and one with an undefined corner
    blocked = 9,         ///< a side without a defined cell
};

constexpr bool isBoundary(SideFlag flag) {
    return flag == SideFlag::boundary || flag == SideFlag::walkedBoundary;
}

/// The flags of the sides along rows, or of those along columns, one bit plane for each property.
struct SideFlags {
    grid::BitPlane usable;    ///< sides of defined cells
    grid::BitPlane boundary;  ///< sides with a defined cell and an undefined one
    grid::BitPlane walked;    ///< sides that a trace of this level has crossed or walked

    SideFlag at(int i, int j) const {
        const bool done = walked.test(i, j);
        if (boundary.test(i, j)) return done ? SideFlag::walkedBoundary : SideFlag::boundary;
        if (!usable.test(i, j)) return SideFlag::blocked;
        return done ? SideFlag::traced : SideFlag::untouched;
    }
};

/// The cells and sides of a strip.
struct StripSides {
    grid::BitPlane definedCells;  ///< cells with data at all four corners, named by the lower-numbered one
    SideFlags alongRow;           ///< side (i, j): from point (i, j) to (i + 1, j)
    SideFlags alongColumn;        ///< side (i, j): from point (i, j) to (i, j + 1)

    void resize(int nx, const Strip& strip);

    /// Finds the undefined boundaries of a strip.
    void markUndefinedSides(const grid::LevelIndex& index, const Strip& strip);

    /// Clears the flags of sides that have been walked.
    void clearWalked(const Strip& strip);

    SideFlags& of(const grid::GridEdge& side) { return side.alongRow ? alongRow : alongColumn; }
    SideFlag flag(const grid::GridEdge& side) const {
        return (side.alongRow ? alongRow : alongColumn).at(side.i, side.j);
    }
    void setWalked(const grid::GridEdge& side) { of(side).walked.set(side.i, side.j); }
};

}  // namespace velmar::shade
