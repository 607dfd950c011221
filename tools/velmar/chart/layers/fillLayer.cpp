#include "chart/layers/fillLayer.h"

#include "chart/paper/palette.h"
#include "chart/paper/paperArea.h"
#include "compute/levelSpacing.h"

namespace velmar::tool {

Fill fillContours(const ContourSet& set) {
    // Areas of the coarse grid would not reach the lines.
    Fill fill{tracedGrid(set), ascending(set.levels), {}, {}};
    fill.colours = bandColours(fill.levels);
    std::vector<shade::ValueBand> above;
    above.reserve(fill.levels.size());
    for (const float level : fill.levels) above.push_back({level});
    fill.areas = shade::outlineBands(fill.grid, grid::missingInFiles, above);
    return fill;
}

void FillLayer::draw(Page& page) const {
    for (std::size_t k = 0; k < fill_.areas.size(); ++k) {
        for (const base::PointRun& outline : fill_.areas[k].runs)
            traceOutline(page.ink, page.map, fill_.areas[k].pointsOf(outline), fill_.lattice);
        setColour(page.ink, fill_.colours[k + 1]);
        cairo_fill(page.ink);
    }
}

}  // namespace velmar::tool
