#include "chart/layers/fillLayer.h"

#include "chart/paper/paperArea.h"

namespace velmar::tool {

void FillLayer::draw(Page& page) const {
    for (std::size_t k = 0; k < fill_.areas.size(); ++k) {
        for (const Outline& outline : fill_.areas[k])
            traceOutline(page.ink, page.map, outline, fill_.lattice);
        setColour(page.ink, fill_.colours[k + 1]);
        cairo_fill(page.ink);
    }
}

}  // namespace velmar::tool
