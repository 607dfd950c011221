#include "analysis/capAndMask.h"

#include <algorithm>
#include <cstdint>

#include "analysis/columnBlocks.h"
#include "analysis/distance.h"

namespace velmar::analysis {

namespace {

constexpr float blanked = -9999.0F;

/// What the points of a row have found so far.
struct RowFindings {
    std::vector<float> largest;
    std::vector<std::uint8_t> found;

    explicit RowFindings(std::size_t points) : largest(points), found(points) {}

    void clear() {
        std::fill(largest.begin(), largest.end(), -1.0e16F);
        std::fill(found.begin(), found.end(), std::uint8_t{0});
    }
};

/// What the stations do to the points of one block.
void capBlock(float* grid, const grid::GridPlace& place, const GridSize& size, const StationView& stations,
              float radius, const LineRange& block) {
    const auto columns = static_cast<std::size_t>(size.nx);
    const std::vector<float> longitudes = columnLongitudes(place, block);
    RowFindings row(block.count);
    for (int j = 0; j < size.ny; ++j) {
        row.clear();
        const float latitude = rowLatitude(place, j);
        for (std::size_t k = 0; k < stations.count(); ++k) {
            const float dy = latitude - stations.latitudes[k];
            if (!(std::fabs(dy) <= radius)) continue;
            const float longitude = stations.longitudes[k];
            const float value = stations.values[k];
            const auto [first, count] =
                linesWithin(place.x0, place.dx, columns, longitude, radius).within(block);
            for (std::size_t i = first; i < first + count; ++i) {
                const bool near = length(longitudes[i] - longitude, dy) <= radius;
                row.found[i] |= static_cast<std::uint8_t>(near);
                row.largest[i] = near && value > row.largest[i] ? value : row.largest[i];
            }
        }
        float* const points = grid + static_cast<std::size_t>(j) * columns + block.first;
        for (std::size_t i = 0; i < block.count; ++i) {
            const float capped = row.largest[i] < points[i] ? row.largest[i] : points[i];
            points[i] = row.found[i] != 0 ? capped : blanked;
        }
    }
}

}  // namespace

void capByNearbyStations(float* grid, const grid::GridPlace& place, const GridSize& size,
                         const StationView& stations, float radius) {
    forEachColumnBlock(size.nx,
                       [&](const LineRange& block) { capBlock(grid, place, size, stations, radius, block); });
}

}  // namespace velmar::analysis
