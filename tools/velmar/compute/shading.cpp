#include "compute/shading.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "cli/problem.h"
#include "compute/blockReader.h"

namespace velmar::tool {
namespace {

ShadePolygon readPolygon(BlockReader& in) {
    const std::size_t points = in.count();
    const float level = in.value();
    const int colour = static_cast<int>(in.value());
    return {{in.values(2 * points)}, level, colour};
}

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

bool ShadePolygon::counterClockwise() const {
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
    Shading shading{.block = Block(velmarCntrShad(
                        grid.values, grid.nx, grid.ny, levels.data(), colours.data(),
                        static_cast<int>(levels.size()), grid::missingInFiles, lattice.startLongitude,
                        lattice.startLatitude, lattice.longitudeStep, lattice.latitudeStep, stripRows)),
                    .polygons = {}};
    if (shading.block == nullptr) {
        // The library says nothing of why.
        if (reachesAbove(grid, levels.front()))
            throw Problem("the library gave up shading it, for lack of memory or of room in its tables");
        return shading;
    }
    BlockReader in(shading.block.get() + 1);
    const std::size_t count = in.count();
    shading.polygons.reserve(count);
    for (std::size_t k = 0; k < count; ++k) shading.polygons.push_back(readPolygon(in));
    return shading;
}

std::vector<float> ascending(std::vector<float> levels) {
    std::erase_if(levels, [](float level) { return !std::isfinite(level); });
    std::ranges::sort(levels);
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    return levels;
}

}  // namespace velmar::tool
