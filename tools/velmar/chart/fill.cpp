#include "chart/fill.h"

#include "chart/paper/palette.h"

namespace velmar::tool {

Fill fillContours(const ContourSet& set) {
    Fill fill{.levels = ascending(set.levels),
              .colours = {},
              // Areas of the coarse grid would not reach the lines.
              .grid = refine(set.grid, grid::missingInFiles, set.refinement),
              .lattice = set.tracedLattice(),
              .areas = {}};
    fill.colours = bandColours(fill.levels);
    constexpr grid::Lattice columnsAndRows{0, 0, 1, 0, 0, 1};
    for (const float level : fill.levels)
        fill.areas.push_back(joinStrips(shadeGrid(fill.grid.view(), columnsAndRows, {level}, 1)));
    return fill;
}

}  // namespace velmar::tool
