#include "analysis/capAndMask.h"

#include <algorithm>
#include <cstdint>

#include "analysis/distance.h"

namespace velmar::analysis {

namespace {

constexpr float blanked = -9999.0F;

/// What the points of a row have found so far.
struct RowFindings {
    std::vector<float> largest;
    std::vector<std::uint8_t> found;

    explicit RowFindings(int nx) : largest(static_cast<std::size_t>(nx)), found(largest.size()) {}

    void clear() {
        std::fill(largest.begin(), largest.end(), -1.0e16F);
        std::fill(found.begin(), found.end(), std::uint8_t{0});
    }
};

}  // namespace

void capByNearbyStations(float* grid, const grid::GridPlace& place, const GridSize& size,
                         const StationView& stations, float radius) {
    const std::vector<float> longitudes = columnLongitudes(place, size.nx);
    RowFindings row(size.nx);
    for (int j = 0; j < size.ny; ++j) {
        row.clear();
        const float latitude = rowLatitude(place, j);
        for (std::size_t k = 0; k < stations.count(); ++k) {
            const float dy = latitude - stations.latitudes[k];
            if (!(std::fabs(dy) <= radius)) continue;
            const float longitude = stations.longitudes[k];
            const float value = stations.values[k];
            const auto [first, count] = linesWithin(place.x0, place.dx, longitudes.size(), longitude, radius);
            for (std::size_t i = first; i < first + count; ++i) {
                const bool near = length(longitudes[i] - longitude, dy) <= radius;
                row.found[i] |= static_cast<std::uint8_t>(near);
                row.largest[i] = near && value > row.largest[i] ? value : row.largest[i];
            }
        }
        float* const points = grid + static_cast<std::size_t>(j) * row.largest.size();
        for (std::size_t i = 0; i < row.largest.size(); ++i) {
            const float capped = row.largest[i] < points[i] ? row.largest[i] : points[i];
            points[i] = row.found[i] != 0 ? capped : blanked;
        }
    }
}

}  // namespace velmar::analysis
