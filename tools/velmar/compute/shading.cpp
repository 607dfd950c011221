#include "compute/shading.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "common/text.h"
#include "shade/shading.h"

namespace velmar::tool {
namespace {

/// Whether a cell with data at all corners reaches above a level.
bool reachesAbove(const grid::GridView& grid, float level) {
    for (int j = 0; j + 1 < grid.ny; ++j) {
        for (int i = 0; i + 1 < grid.nx; ++i) {
            const std::array corners{grid.at(i, j), grid.at(i + 1, j), grid.at(i, j + 1),
                                     grid.at(i + 1, j + 1)};
            if (std::ranges::all_of(corners, isPresent) && std::ranges::max(corners) > level) return true;
        }
    }
    return false;
}

}  // namespace

bool PaintedArea::counterClockwise() const {
    double twiceArea = 0;
    const auto [x0, y0] = (*this)[0];
    for (std::size_t k = 1; k < size(); ++k) {
        const auto [x1, y1] = (*this)[k - 1];
        const auto [x2, y2] = (*this)[k];
        twiceArea += (static_cast<double>(x1) - x0) * (static_cast<double>(y2) - y0) -
                     (static_cast<double>(x2) - x0) * (static_cast<double>(y1) - y0);
    }
    return twiceArea > 0;
}

Shading shadeGrid(const grid::GridView& grid, const grid::Lattice& lattice, const std::vector<float>& levels,
                  int stripRows) {
    if (levels.empty()) return {};
    std::vector<int> colours(levels.size());
    std::iota(colours.begin(), colours.end(), 0);
    const auto listed =
        shade::ShadeLevels::listed(levels.data(), colours.data(), static_cast<int>(levels.size()));
    shade::ShadeBuffers buffers;
    shade::ShadePolygons list;
    const bool traced =
        shade::shadeGrid({grid, grid::missingInFiles, listed, stripRows}, lattice.place(), buffers, list);
    if (!traced || list.runs.empty()) {
        // Nothing to paint although a cell reaches above the lowest level: the tracing gave up.
        if (reachesAbove(grid, levels.front()))
            throw Problem("the library gave up shading it, for lack of memory or of room in its tables");
        return {};
    }
    Shading shading{.coordinates = base::allocateFloats(2 * list.points.size()), .polygons = {}};
    shading.polygons.reserve(list.runs.size());
    float* next = shading.coordinates.get();
    for (const shade::ShadePolygon& polygon : list.runs) {
        shading.polygons.push_back({{{next, 2 * polygon.pointCount}}, polygon.level, polygon.colour});
        for (const auto& [longitude, latitude] : list.pointsOf(polygon)) {
            *next++ = longitude;
            *next++ = latitude;
        }
    }
    return shading;
}

}  // namespace velmar::tool
