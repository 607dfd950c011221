#include "analysis/nearestStation.h"

#include <algorithm>
#include <limits>

#include "analysis/columnBlocks.h"
#include "analysis/distance.h"

namespace velmar::analysis {

namespace {

constexpr int none = -1;

/// The nearest stations of a row's points so far.
struct RowNearest {
    std::vector<float> distances;
    std::vector<int> stations;

    explicit RowNearest(std::size_t points) : distances(points), stations(points) {}

    void clear() {
        std::fill(distances.begin(), distances.end(), 1.0e20F);
        std::fill(stations.begin(), stations.end(), none);
    }
};

/// Half the width of the box that a station must lie in.
float boxReach(float radius, Reach reach) {
    return reach == Reach::distanceAndBox ? 2.0F * radius : std::numeric_limits<float>::infinity();
}

void findInBlock(const grid::GridPlace& place, const GridSize& size, const StationView& stations,
                 float radius, float box, LineRange block, const TakeNearest& take) {
    const std::vector<float> longitudes = columnLongitudes(place, block);
    RowNearest row(block.count);
    for (int j = 0; j < size.ny; ++j) {
        row.clear();
        const float latitude = rowLatitude(place, j);
        for (std::size_t k = 0; k < stations.count(); ++k) {
            // Stations as far away as the radius are no different from none.
            if (!(std::fabs(latitude - stations.latitudes[k]) < radius)) continue;
            const StationFromRow station(latitude, stations.longitudes[k], stations.latitudes[k]);
            const auto [first, count] = station.columnsWithin(radius, place, block);
            for (std::size_t i = first; i < first + count; ++i) {
                const float distance = station.distanceOf(longitudes[i]);
                const bool nearer =
                    distance < row.distances[i] && std::fabs(longitudes[i] - station.longitude) < box;
                row.distances[i] = nearer ? distance : row.distances[i];
                row.stations[i] = nearer ? static_cast<int>(k) : row.stations[i];
            }
        }
        for (std::size_t i = 0; i < block.count; ++i)
            row.stations[i] = row.distances[i] < radius ? row.stations[i] : none;
        take(static_cast<std::size_t>(j) * static_cast<std::size_t>(size.nx) + block.first, row.stations);
    }
}

}  // namespace

void findNearestStations(const grid::GridPlace& place, const GridSize& size, const StationView& stations,
                         float radius, Reach reach, const TakeNearest& take) {
    if (grid::valueCount(size.nx, size.ny) == 0) return;
    const float box = boxReach(radius, reach);
    forEachColumnBlock(
        size.nx, [&](LineRange block) { findInBlock(place, size, stations, radius, box, block, take); });
}

}  // namespace velmar::analysis
