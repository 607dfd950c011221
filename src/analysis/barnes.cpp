#include "analysis/barnes.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <utility>

#include "analysis/barnesRow.h"
#include "analysis/capAndMask.h"
#include "analysis/columnBlocks.h"
#include "base/messages.h"
#include "base/progress.h"
#include "base/threads.h"

namespace velmar::analysis {

namespace {

using base::Floats;
using grid::GridPlace;

constexpr int passes = 5;

class Barnes {
public:
    Barnes(const BarnesParameters& parameters, const GridSize& size, const WholeLonLatBox& bounds,
           const StationView& stations)
        : parameters_(parameters),
          size_(size),
          bounds_(bounds),
          place_(placeOf(size, bounds)),
          stations_(stations),
          grid_(base::allocateFloats(grid::valueCount(size.nx, size.ny))),
          estimates_(stations.values.begin(), stations.values.end()),
          residuals_(stations.count()) {}

    Floats analyse(float maskRadius);

private:
    void barnesFirstGuess();
    void interpolateGridToStations();
    void stationResidualStats(int pass);
    void barnesCorrectionPass(int pass);

    double widthOf(int pass) const;
    float interpolatedAt(float longitude, float latitude) const;
    template <class Combine>
    void sweepGrid(const BarnesSweep& sweep, Combine combine);
    template <class Combine>
    void sweepRow(BarnesRow& row, int j, LineRange block, const BarnesSweep& sweep, Combine combine);
    template <class Combine>
    static float combined(const BarnesRow& row, std::size_t i, float point, const BarnesSweep& sweep,
                          Combine combine);
    float* gridRow(int j) const {
        return grid_.get() + static_cast<std::size_t>(j) * static_cast<std::size_t>(size_.nx);
    }

    const BarnesParameters parameters_;
    const GridSize size_;
    const WholeLonLatBox bounds_;
    const GridPlace place_;
    const StationView stations_;
    Floats grid_;
    std::vector<float> estimates_;
    std::vector<float> residuals_;
};

Floats Barnes::analyse(float maskRadius) {
    barnesFirstGuess();
    for (int t = 0; t < passes; ++t) {
        interpolateGridToStations();
        stationResidualStats(t);
        barnesCorrectionPass(t + 1);
    }
    if (maskRadius > 0.0F) capAndMask(grid_.get(), place_, size_, stations_, maskRadius);
    return std::move(grid_);
}

void Barnes::barnesFirstGuess() {
    sweepGrid({parameters_.radius, widthOf(0), stations_.values, parameters_.firstGuessFrom},
              [](float, const WeightedSum& s) {
                  return static_cast<float>(s.weight > 0.0 ? s.sum / s.weight : s.sum);
              });
}

void Barnes::barnesCorrectionPass(int pass) {
    const float radius = parameters_.radius / static_cast<float>(pass + 2);
    sweepGrid({radius, widthOf(pass), residuals_, 0}, [](float point, const WeightedSum& s) {
        return s.weight > 0.0 ? static_cast<float>(point + s.sum / s.weight) : point;
    });
}

double Barnes::widthOf(int pass) const {
    double power = 1.0;
    for (int k = 0; k < pass; ++k) power *= static_cast<double>(parameters_.gamma);
    return 4.0 * static_cast<double>(parameters_.kappa) * power;
}

/// Stations on the bounds or beyond keep their estimates: at first these are their own values, so that they
/// correct nothing.
void Barnes::interpolateGridToStations() {
    const auto [west, east, south, north] = bounds_;
    for (std::size_t k = 0; k < stations_.count(); ++k) {
        const float longitude = stations_.longitudes[k];
        const float latitude = stations_.latitudes[k];
        if (longitude > static_cast<float>(west) && longitude < static_cast<float>(east) &&
            latitude > static_cast<float>(south) && latitude < static_cast<float>(north))
            estimates_[k] = interpolatedAt(longitude, latitude);
    }
}

float Barnes::interpolatedAt(float longitude, float latitude) const {
    const float x = (longitude - place_.startLongitude) / place_.longitudeStep;
    const float y = (latitude - place_.startLatitude) / place_.latitudeStep;
    const int column = base::truncateToInt(x);
    const int row = base::truncateToInt(y);
    const float fx = x - static_cast<float>(column);
    const float fy = y - static_cast<float>(row);
    const auto at = [&](int i, int j) {
        return gridRow(std::clamp(j, 0, size_.ny - 1))[std::clamp(i, 0, size_.nx - 1)];
    };
    const float a = (1.0F - fx) * at(column, row) + fx * at(column + 1, row);
    const float b = (1.0F - fx) * at(column, row + 1) + fx * at(column + 1, row + 1);
    return (1.0F - fy) * a + fy * b;
}

void Barnes::stationResidualStats(int pass) {
    double sum = 0.0;
    double absoluteSum = 0.0;
    float largest = -1.0F;
    for (std::size_t k = 0; k < residuals_.size(); ++k) {
        const float residual = stations_.values[k] - estimates_[k];
        residuals_[k] = residual;
        sum += residual;
        absoluteSum += std::fabs(residual);
        if (std::fabs(residual) > largest) largest = std::fabs(residual);
    }
    // The mean of nothing is not a number, of which machines disagree about the sign.
    const auto meanOf = [&](double total) {
        return residuals_.empty() ? std::numeric_limits<double>::quiet_NaN()
                                  : total / static_cast<double>(residuals_.size());
    };
    const double mean = meanOf(sum);
    double squares = 0.0;
    for (const float residual : residuals_) squares += (residual - mean) * (residual - mean);
    // The sum of the squares has always been printed as it is, not divided by the count.
    base::progress(base::messages::barnesPass, {pass, largest, meanOf(absoluteSum), std::sqrt(squares)});
}

/// Gives each point what `combine` makes of its value and its sums; at a station's place that station's value.
template <class Combine>
void Barnes::sweepGrid(const BarnesSweep& sweep, Combine combine) {
    const auto rows = static_cast<std::size_t>(size_.ny);
    forEachColumnBlock(size_.nx, [&](LineRange block) {
        const double points = static_cast<double>(block.count);
        const double nanosecondsEach = 10.0 * points + 0.3 * points * static_cast<double>(stations_.count());
        base::shareWork(rows, nanosecondsEach, [&](std::size_t first, std::size_t last) {
            BarnesRow row(place_, block);
            for (std::size_t j = first; j < last; ++j)
                sweepRow(row, static_cast<int>(j), block, sweep, combine);
        });
    });
}

template <class Combine>
void Barnes::sweepRow(BarnesRow& row, int j, LineRange block, const BarnesSweep& sweep, Combine combine) {
    row.sum(rowLatitude(place_, j), stations_, sweep);
    float* const points = gridRow(j) + block.first;
    for (std::size_t i = 0; i < row.size(); ++i) {
        points[i] = row.isAtStation(i) ? stations_.values[row.stationAt(i)]
                                       : combined(row, i, points[i], sweep, combine);
    }
}

/// What `combine` makes of the exact sums. Those at hand are good enough where all that lie as near to the exact
/// ones as they do come to the same.
template <class Combine>
float Barnes::combined(const BarnesRow& row, std::size_t i, float point, const BarnesSweep& sweep,
                       Combine combine) {
    const auto [sum, weight] = row.at(i);
    const double slack = row.uncertainty(i, sweep);
    const float lower = combine(point, {sum - slack, weight});
    const float upper = combine(point, {sum + slack, weight});
    const bool decided = std::bit_cast<std::uint32_t>(lower) == std::bit_cast<std::uint32_t>(upper);
    if (decided && !row.isFaint(i, sweep)) return lower;
    return combine(point, row.exactly(i, sweep));
}

}  // namespace

Floats analyseBarnes(const BarnesParameters& parameters, const GridSize& size, const WholeLonLatBox& bounds,
                     const StationView& stations, float maskRadius) {
    if (grid::valueCount(size.nx, size.ny) == 0) return nullptr;
    return Barnes(parameters, size, bounds, stations).analyse(maskRadius);
}

}  // namespace velmar::analysis
