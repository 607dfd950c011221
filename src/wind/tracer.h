#pragma once

#include <cstdint>

#include "wind/drawing.h"
#include "wind/flagGrid.h"
#include "wind/lineColours.h"

namespace velmar::wind {

/// A wind field to be traced, m/s, rows from south to north.
struct WindField {
    grid::GridView u;
    grid::GridView v;
    float uMissing;
    float vMissing;
};

/// A place in grid lengths from the first column and row, or a part of a grid cell from its lower left corner.
struct GridOffset {
    float x;
    float y;
};

/// Follows streamlines from cell to cell, flags the cells that they leave and draws them.
///
/// All arithmetic on places is single precision with a rounding per operation, so that lines are the same bits
/// everywhere.
class Tracer {
public:
    /// There are `cellsPerLength` cells to a grid length in both directions.
    Tracer(const WindField& wind, const LineColours& colours, const grid::Lattice& lattice,
           int cellsPerLength, FlagGrid& flags, Drawing& drawing);

    /// Draws the line through a place, first with the flow and then against it, until it comes to a flagged cell,
    /// a calm, the edge or a place without data. Returns whether it has flagged a cell.
    bool trace(GridOffset start);

private:
    enum class FlowDirection { withFlow, againstFlow };

    /// The values of one grid at the corners of a grid cell, as they are needed between them.
    struct Corners {
        float lower;
        float lowerDifference;
        float upper;
        float upperDifference;

        float between(GridOffset part) const {
            const float below = lower + lowerDifference * part.x;
            const float above = upper + upperDifference * part.x;
            return below + (above - below) * part.y;
        }
    };

    /// The grid cell that a line is in: many steps are made inside one.
    struct GridCell {
        GridOffset corner{-1, -1};  ///< the lower left one; no cell at first
        bool hasWind = false;
        bool hasColour = false;
        Corners u;
        Corners v;
        Corners colour;
    };

    /// A line that is being traced.
    struct Walk {
        GridOffset place;
        std::int64_t cell;
        int stepsInCell;
        int stepsSinceArrow;
        bool penIsUp;
        bool hasFlagged;
        base::LonLat last;
    };

    bool trace(GridOffset start, FlowDirection direction);
    bool isOnGrid(GridOffset place) const;
    base::LonLat degrees(GridOffset place) const;
    std::int64_t cellOf(GridOffset place) const;
    void enterGridCell(int i, int j);
    GridOffset partOf(GridOffset place) const;
    void chooseColour(GridOffset part);
    bool step(Walk& walk, FlowDirection direction);
    bool enterCell(Walk& walk);
    void draw(Walk& walk, FlowDirection direction);

    WindField wind_;
    LineColours colours_;
    grid::Lattice lattice_;
    float cellsPerLength_;
    float stepLength_;  ///< of the longer component of a step, in grid lengths: half a cell
    FlagGrid& flags_;
    Drawing& drawing_;

    GridCell gridCell_{};
    int colour_ = 1;           ///< the last one looked up; nothing is drawn when it is below 0
    int previousColour_ = -9;  ///< the one before; no colour at first
    base::LonLat previous_{};  ///< where the last step ended, whatever line it was on
};

}  // namespace velmar::wind
