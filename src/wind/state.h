#pragma once

#include "frame/grid.h"

namespace velmar::wind {

/// What the wind exports leave behind for later calls. Lives as long as the process.
struct WindState {
    /// Where the last wind file said that its grids lie, rows from south to north. streamAnalyse, which is told
    /// no place, takes its grids to lie here.
    frame::Lattice lattice{};
    /// Colour of the last piece of streamline that was coloured. The first points of the next call carry it.
    int currentColour = 0;
};

WindState& state();

}  // namespace velmar::wind
