#include "analysis/capAndMask.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/columnBlocks.h"
#include "analysis/distance.h"
#include "base/threads.h"

namespace velmar::analysis {

namespace {

constexpr float blanked = -9999.0F;

/// What a station does to points of a row side by side.
void addStation(std::size_t count, const float* longitudes, float longitude, float dy, float radius,
                float value, float* largest, std::int32_t* found) {
    for (std::size_t i = 0; i < count; ++i) {
        const bool near = length(longitudes[i] - longitude, dy) <= radius;
        found[i] |= static_cast<std::int32_t>(near);
        largest[i] = near && value > largest[i] ? value : largest[i];
    }
}

/// The points of a row in a block of columns, and what they find within the radius.
class MaskRow {
public:
    MaskRow(const grid::GridPlace& place, LineRange block)
        : place_(place),
          block_(block),
          longitudes_(columnLongitudes(place, block)),
          largest_(block.count),
          found_(block.count) {}

    void find(float latitude, const StationView& stations, float radius) {
        std::fill(largest_.begin(), largest_.end(), -1.0e16F);
        std::fill(found_.begin(), found_.end(), 0);
        for (std::size_t k = 0; k < stations.count(); ++k) {
            const float dy = latitude - stations.latitudes[k];
            if (!(std::fabs(dy) <= radius)) continue;
            const float longitude = stations.longitudes[k];
            const auto [first, count] =
                linesWithin(place_.startLongitude, place_.longitudeStep, block_, longitude, radius);
            addStation(count, longitudes_.data() + first, longitude, dy, radius, stations.values[k],
                       largest_.data() + first, found_.data() + first);
        }
    }

    void apply(float* points) const {
        for (std::size_t i = 0; i < block_.count; ++i) {
            const float capped = largest_[i] < points[i] ? largest_[i] : points[i];
            points[i] = found_[i] != 0 ? capped : blanked;
        }
    }

private:
    const grid::GridPlace place_;
    const LineRange block_;
    const std::vector<float> longitudes_;
    std::vector<float> largest_;       ///< value of the stations found
    std::vector<std::int32_t> found_;  ///< as wide as the values, so that both are worked on side by side
};

}  // namespace

void capAndMask(float* grid, const grid::GridPlace& place, const GridSize& size, const StationView& stations,
                float radius) {
    forEachColumnBlock(size.nx, [&](LineRange block) {
        const double nanosecondsEach =
            static_cast<double>(stations.count()) + 0.1 * static_cast<double>(block.count * stations.count());
        base::shareWork(static_cast<std::size_t>(size.ny), nanosecondsEach,
                        [&](std::size_t first, std::size_t last) {
                            MaskRow row(place, block);
                            for (std::size_t j = first; j < last; ++j) {
                                row.find(rowLatitude(place, static_cast<int>(j)), stations, radius);
                                row.apply(grid + j * static_cast<std::size_t>(size.nx) + block.first);
                            }
                        });
    });
}

}  // namespace velmar::analysis
