#include "chart/layers/fillLayer.h"

#include "chart/paper/palette.h"
#include "chart/paper/paperArea.h"

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

void FillLayer::draw(Page& page) const {
    for (std::size_t k = 0; k < fill_.areas.size(); ++k) {
        for (const AreaOutline& outline : fill_.areas[k])
            traceOutline(page.ink, page.map, outline, fill_.lattice);
        setColour(page.ink, fill_.colours[k + 1]);
        cairo_fill(page.ink);
    }
}

}  // namespace velmar::tool
