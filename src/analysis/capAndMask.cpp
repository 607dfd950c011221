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
    std::vector<std::int32_t> found;  ///< as wide as the values, so that both are worked on side by side

    explicit RowFindings(std::size_t points) : largest(points), found(points) {}

    void clear() {
        std::fill(largest.begin(), largest.end(), -1.0e16F);
        std::fill(found.begin(), found.end(), 0);
    }
};

/// What a station does to points of a row side by side.
void addStation(std::size_t count, const float* longitudes, float longitude, float dy, float radius,
                float value, float* largest, std::int32_t* found) {
    for (std::size_t i = 0; i < count; ++i) {
        const bool near = length(longitudes[i] - longitude, dy) <= radius;
        found[i] |= static_cast<std::int32_t>(near);
        largest[i] = near && value > largest[i] ? value : largest[i];
    }
}

/// What the stations do to the points of one block.
void capBlock(float* grid, const grid::GridPlace& place, const GridSize& size, const StationView& stations,
              float radius, LineRange block) {
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
            const auto [first, count] = linesWithin(place.x0, place.dx, block, longitude, radius);
            addStation(count, longitudes.data() + first, longitude, dy, radius, stations.values[k],
                       row.largest.data() + first, row.found.data() + first);
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
                       [&](LineRange block) { capBlock(grid, place, size, stations, radius, block); });
}

}  // namespace velmar::analysis
