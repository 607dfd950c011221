#include "chart/layers/triangleLayer.h"

#include "chart/paper/paperLine.h"

namespace velmar::tool {
namespace {

constexpr Colour ink{0.78, 0.78, 0.74};
constexpr double lineWidth = 0.6;

}  // namespace

void TriangleLayer::draw(Page& page) const {
    const analysis::Stations& stations = contours_.stations;
    const grid::Lattice& lattice = contours_.lines.lattice;
    const auto [first, last] = circlesInto(page.map.bounds, lattice.startLongitude, lattice.endLongitude);
    const auto place = [&](std::uint32_t k, int circles) {
        return page.map.toPaper(stations.longitudes[k] + 360.0 * circles, stations.latitudes[k]);
    };
    // Edges that two triangles share are drawn twice, which cannot be seen.
    for (int circles = first; circles <= last; ++circles) {
        for (const auto& [a, b, c] : contours_.triangles) {
            for (const auto& [from, to] : {std::pair(a, b), std::pair(b, c), std::pair(c, a)}) {
                const PaperPoint start = place(from, circles);
                const PaperPoint end = place(to, circles);
                const auto seen = partInside(start, end, sightOf(page.map));
                if (!seen) continue;
                const PaperPoint near = start + seen->from * (end - start);
                const PaperPoint far = start + seen->to * (end - start);
                cairo_move_to(page.ink, near.x, near.y);
                cairo_line_to(page.ink, far.x, far.y);
            }
        }
    }
    setColour(page.ink, ink);
    cairo_set_line_width(page.ink, lineWidth);
    cairo_stroke(page.ink);
}

}  // namespace velmar::tool
