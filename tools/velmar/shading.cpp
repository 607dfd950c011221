#include "shading.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "blockReader.h"
#include "problem.h"

namespace velmar::tool {
namespace {

ShadePolygon readPolygon(BlockReader& in) {
    const std::size_t points = in.count();
    const float level = in.value();
    const int colour = static_cast<int>(in.value());
    return {{in.values(2 * points)}, level, colour};
}

/// Whether a cell with data at all corners reaches above a level.
bool reachesAbove(const frame::GridView& grid, float undefined, float level) {
    const auto isDefined = [&](float value) { return value != undefined && std::isfinite(value); };
    for (int j = 0; j + 1 < grid.ny; ++j) {
        for (int i = 0; i + 1 < grid.nx; ++i) {
            const std::array corners{grid.at(i, j), grid.at(i + 1, j), grid.at(i, j + 1),
                                     grid.at(i + 1, j + 1)};
            if (std::ranges::all_of(corners, isDefined) && std::ranges::max(corners) > level) return true;
        }
    }
    return false;
}

/// Takes over the result of a shading of the grid. The library says nothing of why it is null.
Shading takeOver(float* block, const frame::GridView& grid, float undefined, float lowestLevel) {
    Shading shading{.block = Block(block), .polygons = {}};
    if (block == nullptr) {
        if (reachesAbove(grid, undefined, lowestLevel))
            throw Problem("the library gave up shading it, for lack of memory or of room in its tables");
        return shading;
    }
    BlockReader in(block + 1);
    const std::size_t count = in.count();
    shading.polygons.reserve(count);
    for (std::size_t k = 0; k < count; ++k) shading.polygons.push_back(readPolygon(in));
    return shading;
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

Shading shadeGrid(const frame::GridView& grid, const frame::Lattice& lattice,
                  const std::vector<float>& levels, int stripRows) {
    if (levels.empty()) return {};
    std::vector<int> colours(levels.size());
    std::iota(colours.begin(), colours.end(), 0);
    constexpr float undefined = frame::missingInFiles;
    float* const block =
        velmarCntrShad(grid.values, grid.nx, grid.ny, levels.data(), colours.data(),
                       static_cast<int>(levels.size()), undefined, lattice.startLongitude,
                       lattice.startLatitude, lattice.longitudeStep, lattice.latitudeStep, stripRows);
    return takeOver(block, grid, undefined, levels.front());
}

Shading shadeByteImage(const std::string& path, const FileHead& head, std::optional<float> level,
                       int stripRows) {
    const shade::ByteImage image = readByteImage(head);
    constexpr int singleLevel = 1;
    constexpr int allLevels = 0;
    float* const block =
        readByteShadData(path.c_str(), stripRows, level ? singleLevel : allLevels, level.value_or(0));
    return takeOver(block, valuesOf(image).view(), undefinedValueOf(image), level.value_or(0));
}

std::vector<float> ascending(std::vector<float> levels) {
    std::erase_if(levels, [](float level) { return !std::isfinite(level); });
    std::ranges::sort(levels);
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    return levels;
}

}  // namespace velmar::tool
