#include "analysis/nearestStation.h"

#include <algorithm>
#include <limits>

#include "analysis/distance.h"

namespace velmar::analysis {

namespace {

constexpr int none = -1;

/// The nearest stations of a row's points so far.
struct RowNearest {
    std::vector<float> distances;
    std::vector<int> stations;

    explicit RowNearest(int nx) : distances(static_cast<std::size_t>(nx)), stations(distances.size()) {}

    void clear() {
        std::fill(distances.begin(), distances.end(), 1.0e20F);
        std::fill(stations.begin(), stations.end(), none);
    }
};

/// Half the width of the box that a station must lie in.
float boxReach(float radius, Reach reach) {
    return reach == Reach::distanceAndBox ? 2.0F * radius : std::numeric_limits<float>::infinity();
}

}  // namespace

std::vector<int> nearestStations(const grid::GridPlace& place, const GridSize& size,
                                 const StationView& stations, float radius, Reach reach) {
    std::vector<int> nearest;
    const std::size_t points = grid::valueCount(size.nx, size.ny);
    if (points == 0) return nearest;
    nearest.reserve(points);
    const std::vector<float> longitudes = columnLongitudes(place, size.nx);
    const float box = boxReach(radius, reach);
    RowNearest row(size.nx);
    for (int j = 0; j < size.ny; ++j) {
        row.clear();
        const float latitude = rowLatitude(place, j);
        for (std::size_t k = 0; k < stations.count(); ++k) {
            // Stations as far away as the radius are no different from none.
            if (!(std::fabs(latitude - stations.latitudes[k]) < radius)) continue;
            const StationFromRow station(latitude, stations.longitudes[k], stations.latitudes[k]);
            const auto [first, count] = station.columnsWithin(radius, place, longitudes.size());
            for (std::size_t i = first; i < first + count; ++i) {
                const float distance = station.distanceOf(longitudes[i]);
                const bool nearer =
                    distance < row.distances[i] && std::fabs(longitudes[i] - station.longitude) < box;
                row.distances[i] = nearer ? distance : row.distances[i];
                row.stations[i] = nearer ? static_cast<int>(k) : row.stations[i];
            }
        }
        for (std::size_t i = 0; i < row.stations.size(); ++i)
            nearest.push_back(row.distances[i] < radius ? row.stations[i] : none);
    }
    return nearest;
}

}  // namespace velmar::analysis
