#include "analysis/cressman.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "analysis/capAndMask.h"
#include "analysis/columnBlocks.h"
#include "analysis/distance.h"
#include "base/messages.h"
#include "base/progress.h"
#include "base/threads.h"
#include "base/wideVectors.h"
#include "grid/bitPlane.h"

namespace velmar::analysis {

namespace {

using base::Floats;
using grid::GridPlace;

constexpr float missing = -9999.0F;
/// Of all scans only the third one, counted from 0, tells which points are without data.
constexpr std::size_t markingScan = 2;

/// A station in the grid, in grid lengths from its first column and row.
struct GriddedStation {
    float x;
    float y;
    int column;  ///< of the cell that it lies in
    int row;
    float value;
};

/// Adds what a station brings to these columns of a block. Its weight is (R^2 - d^2) / (R^2 + d^2).
VELMAR_WIDE_VECTORS
void addCressman(std::size_t blockStart, LineRange columns, float x, float dy, float radius, double residual,
                 double* sums, double* weights) {
    const double reach = static_cast<double>(radius) * static_cast<double>(radius);
    const auto start = static_cast<int>(blockStart);
    const auto first = static_cast<int>(columns.first);
    const auto last = static_cast<int>(columns.end());
    for (int i = first; i < last; ++i) {
        const auto column = static_cast<float>(start + i);
        const float d = length(column - x, dy);
        const bool reached = (column - radius <= x) & (x <= column + radius) & (d <= radius);
        const double squared = static_cast<double>(d) * static_cast<double>(d);
        const double weight = (reach - squared) / (reach + squared);
        sums[i] += reached ? weight * residual : 0.0;
        weights[i] += reached ? weight : 0.0;
    }
}

class Cressman {
public:
    Cressman(const GridSize& size, const GridPlace& place)
        : size_(size),
          place_(place),
          grid_(base::allocateFloats(grid::valueCount(size.nx, size.ny))),
          unreached_(size.nx, size.ny) {}

    /// Puts the stations on the grid. Those outside and those without a value are left out.
    void placeStations(const StationView& stations, const base::LonLatBox& bounds);
    /// The sum of the stations' values, of those in the grid: the first guess.
    float sum() const;
    void fill(float value);
    void scan(float radius, bool marks);
    void blankUnreached();
    Floats release() { return std::move(grid_); }

private:
    float estimateAt(const GriddedStation& station) const;
    void scanRow(int j, float radius, bool marks, LineRange block, RowSums& sums);
    void finishPoints(int j, std::size_t firstColumn, const RowSums& sums, bool marks);
    std::size_t firstPoint(int j) const {
        return static_cast<std::size_t>(j) * static_cast<std::size_t>(size_.nx);
    }

    const GridSize size_;
    const GridPlace place_;
    Floats grid_;  ///< asked for before what else grows with its size
    grid::BitPlane unreached_;
    std::vector<GriddedStation> stations_;
    std::vector<float> residuals_;
};

void Cressman::placeStations(const StationView& stations, const base::LonLatBox& bounds) {
    stations_.reserve(stations.count());
    for (std::size_t k = 0; k < stations.count(); ++k) {
        float longitude = stations.longitudes[k];
        if (longitude < bounds.west)
            longitude += 360.0F;
        else if (longitude > bounds.east)
            longitude -= 360.0F;
        const float x = (longitude - place_.startLongitude) / place_.longitudeStep;
        const float y = (stations.latitudes[k] - place_.startLatitude) / place_.latitudeStep;
        const int column = base::truncateToInt(x);
        const int row = base::truncateToInt(y);
        // Truncation takes stations up to one grid length west or south of the grid for inside.
        const bool inside = column >= 0 && column < size_.nx && row >= 0 && row < size_.ny;
        if (inside && stations.values[k] != missing)
            stations_.push_back({x, y, column, row, stations.values[k]});
    }
    residuals_.resize(stations_.size());
}

float Cressman::sum() const {
    float sum = 0.0F;
    for (const GriddedStation& station : stations_) sum += station.value;
    return sum;
}

/// Between the four points around a station. In the last column and row there are only two, or one.
float Cressman::estimateAt(const GriddedStation& station) const {
    const auto [x, y, column, row, value] = station;
    const auto at = [&](int i, int j) {
        return grid_[firstPoint(std::min(j, size_.ny - 1)) +
                     static_cast<std::size_t>(std::min(i, size_.nx - 1))];
    };
    const float fx = x - static_cast<float>(column);
    const float fy = y - static_cast<float>(row);
    const float a = at(column, row) + fx * (at(column + 1, row) - at(column, row));
    const float c = at(column, row + 1) + fx * (at(column + 1, row + 1) - at(column, row + 1));
    return a + fy * (c - a);
}

/// Moves every point towards the stations within the radius. All residuals are those of the grid before.
void Cressman::scan(float radius, bool marks) {
    for (std::size_t k = 0; k < stations_.size(); ++k)
        residuals_[k] = stations_[k].value - estimateAt(stations_[k]);
    const auto rows = static_cast<std::size_t>(size_.ny);
    // A station reaches this many rows, and as many columns.
    const double reached =
        std::clamp(2.0 * static_cast<double>(radius), 1.0, static_cast<double>(blockColumns));
    const double share = std::min(reached / static_cast<double>(rows), 1.0);
    const double nanosecondsEach = static_cast<double>(stations_.size()) * (1.0 + share * reached);
    forEachColumnBlock(size_.nx, [&](LineRange block) {
        base::shareWork(rows, nanosecondsEach, [&](std::size_t first, std::size_t last) {
            RowSums sums(block.count);
            for (std::size_t j = first; j < last; ++j)
                scanRow(static_cast<int>(j), radius, marks, block, sums);
        });
    });
}

void Cressman::scanRow(int j, float radius, bool marks, LineRange block, RowSums& sums) {
    sums.clear();
    const auto row = static_cast<float>(j);
    for (std::size_t k = 0; k < stations_.size(); ++k) {
        const auto [x, y] = std::pair(stations_[k].x, stations_[k].y);
        if (!(row - radius <= y && y <= row + radius)) continue;
        addCressman(block.first, linesWithin(0.0, 1.0, block, x, radius), x, row - y, radius, residuals_[k],
                    sums.sums.data(), sums.weights.data());
    }
    finishPoints(j, block.first, sums, marks);
}

/// Moves the points of a row from the first column on.
void Cressman::finishPoints(int j, std::size_t firstColumn, const RowSums& sums, bool marks) {
    constexpr double leastWeight = 1.0e-6;
    float* const points = grid_.get() + firstPoint(j) + firstColumn;
    for (std::size_t i = 0; i < sums.sums.size(); ++i) {
        if (sums.weights[i] > leastWeight) {
            points[i] = static_cast<float>(sums.sums[i] / sums.weights[i] + points[i]);
        } else if (marks) {
            unreached_.set(static_cast<int>(firstColumn + i), j);
        }
    }
}

void Cressman::fill(float value) {
    base::shareWork(static_cast<std::size_t>(size_.ny), 0.3 * size_.nx,
                    [&](std::size_t first, std::size_t last) {
                        std::fill(grid_.get() + firstPoint(static_cast<int>(first)),
                                  grid_.get() + firstPoint(static_cast<int>(last)), value);
                    });
}

void Cressman::blankUnreached() {
    base::shareWork(static_cast<std::size_t>(size_.ny), 1.0 * size_.nx,
                    [&](std::size_t first, std::size_t last) {
                        for (int j = static_cast<int>(first); j < static_cast<int>(last); ++j)
                            for (int i = 0; i < size_.nx; ++i)
                                if (unreached_.test(i, j))
                                    grid_[firstPoint(j) + static_cast<std::size_t>(i)] = missing;
                    });
}

}  // namespace

Floats analyseCressman(std::span<const float> radii, const GridSize& size, const base::LonLatBox& bounds,
                       const StationView& stations, float maskRadius) try {
    if (grid::valueCount(size.nx, size.ny) == 0) return nullptr;
    const GridPlace place = placeOf(size, bounds);
    Cressman cressman(size, place);
    cressman.placeStations(stations, bounds);
    // The first guess is the sum of the values, not their mean: the scans correct it.
    const float sum = cressman.sum();
    if (sum == missing) {
        base::progress(base::messages::cressmanSumIsMissing);
        return nullptr;
    }
    cressman.fill(sum);
    for (std::size_t s = 0; s < radii.size(); ++s) cressman.scan(radii[s], s == markingScan);
    cressman.blankUnreached();
    Floats grid = cressman.release();
    if (maskRadius > 0.0F) capAndMask(grid.get(), place, size, stations, maskRadius);
    return grid;
} catch (const std::exception&) {
    // std::bad_alloc, or std::length_error for more than an allocator can be asked for.
    base::progress(base::messages::noMemoryForCressman);
    return nullptr;
}

}  // namespace velmar::analysis
