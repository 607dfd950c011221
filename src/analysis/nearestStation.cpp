#include "analysis/nearestStation.h"

#include <algorithm>
#include <limits>
#include <span>
#include <vector>

#include "analysis/columnBlocks.h"
#include "analysis/distance.h"
#include "base/threads.h"

namespace velmar::analysis {

namespace {

constexpr int none = -1;

/// Half the width of the box that a station must lie in.
float boxReach(float radius, Reach reach) {
    return reach == Reach::distanceAndBox ? 2.0F * radius : std::numeric_limits<float>::infinity();
}

/// Gives points of a row side by side a station where it is nearer than those before it.
void keepNearer(std::size_t count, const float* longitudes, const StationFromRow& station, int number,
                float box, float* distances, int* nearest) {
    const StationFromRow from = station;
    for (std::size_t i = 0; i < count; ++i) {
        const float distance = from.distanceOf(longitudes[i]);
        const bool nearer = (distance < distances[i]) & (std::fabs(longitudes[i] - from.longitude) < box);
        distances[i] = nearer ? distance : distances[i];
        nearest[i] = nearer ? number : nearest[i];
    }
}

/// The points of a row in a block of columns, and the nearest station of each.
class NearestRow {
public:
    NearestRow(const grid::GridPlace& place, LineRange block)
        : place_(place),
          block_(block),
          longitudes_(columnLongitudes(place, block)),
          distances_(block.count),
          nearest_(block.count) {}

    std::span<const int> find(float latitude, const StationView& stations, float radius, float box) {
        std::fill(distances_.begin(), distances_.end(), 1.0e20F);
        std::fill(nearest_.begin(), nearest_.end(), none);
        for (std::size_t k = 0; k < stations.count(); ++k) {
            // Stations as far away as the radius are no different from none.
            if (!(std::fabs(latitude - stations.latitudes[k]) < radius)) continue;
            const StationFromRow station(latitude, stations.longitudes[k], stations.latitudes[k]);
            const auto [first, count] = station.columnsWithin(radius, place_, block_);
            keepNearer(count, longitudes_.data() + first, station, static_cast<int>(k), box,
                       distances_.data() + first, nearest_.data() + first);
        }
        for (std::size_t i = 0; i < block_.count; ++i)
            nearest_[i] = distances_[i] < radius ? nearest_[i] : none;
        return nearest_;
    }

private:
    const grid::GridPlace place_;
    const LineRange block_;
    const std::vector<float> longitudes_;
    std::vector<float> distances_;
    std::vector<int> nearest_;
};

}  // namespace

void findNearestStations(const grid::GridPlace& place, const GridSize& size, const StationView& stations,
                         float radius, Reach reach, const TakeNearest& take) {
    if (grid::valueCount(size.nx, size.ny) == 0) return;
    const float box = boxReach(radius, reach);
    forEachColumnBlock(size.nx, [&](LineRange block) {
        const double nanosecondsEach =
            static_cast<double>(stations.count()) + 0.1 * static_cast<double>(block.count * stations.count());
        base::shareWork(
            static_cast<std::size_t>(size.ny), nanosecondsEach, [&](std::size_t first, std::size_t last) {
                NearestRow row(place, block);
                for (std::size_t j = first; j < last; ++j)
                    take(block.first + j * static_cast<std::size_t>(size.nx),
                         row.find(rowLatitude(place, static_cast<int>(j)), stations, radius, box));
            });
    });
}

}  // namespace velmar::analysis
