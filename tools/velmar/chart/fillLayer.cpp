#include "chart/fillLayer.h"

#include <algorithm>

#include "chart/paperArea.h"

namespace velmar::tool {
namespace {

const Colour& colourAbove(const Fill& fill, float level) {
    const auto band = std::ranges::upper_bound(fill.levels, level) - fill.levels.begin();
    return fill.colours[static_cast<std::size_t>(band)];
}

}  // namespace

void FillLayer::draw(Page& page) const {
    for (const LevelArea& area : fill_.areas) {
        for (const Outline& outline : area.outlines) traceOutline(page.ink, page.map, outline, fill_.lattice);
        setColour(page.ink, colourAbove(fill_, area.level));
        cairo_fill(page.ink);
    }
}

}  // namespace velmar::tool
