#include "analysis/barnesRow.h"

#include <algorithm>
#include <limits>
#include <numbers>

#include "analysis/columnBlocks.h"
#include "base/elementary.h"
#include "base/wideVectors.h"

namespace velmar::analysis {

namespace {

/// Of stations whose exponents differ by this much the farther one weighs less than 1e-16 of the nearer.
constexpr double decisiveExponent = 37.0;

double squareOf(float d) { return static_cast<double>(d) * static_cast<double>(d); }

/// Points of a row side by side: their longitudes and their sums.
struct Columns {
    std::size_t count;
    const float* longitudes;
    double* sums;
    double* weights;
};

VELMAR_WIDE_VECTORS
void addGaussian(const Columns& columns, const StationFromRow& station, float radius, double width,
                 double contribution) {
    const auto [count, longitudes, sums, weights] = columns;
    const StationFromRow from = station;
    for (std::size_t i = 0; i < count; ++i) {
        const float d = from.distanceOf(longitudes[i]);
        const double weight = base::exponential(-squareOf(d) / width);
        sums[i] += d < radius ? weight * contribution : 0.0;
        weights[i] += d < radius ? weight : 0.0;
    }
}

VELMAR_WIDE_VECTORS
void keepNearest(std::size_t count, const float* longitudes, const StationFromRow& station,
                 float* nearestSquares) {
    const StationFromRow from = station;
    for (std::size_t i = 0; i < count; ++i) {
        const float square = from.squareOf(longitudes[i]);
        nearestSquares[i] = square < nearestSquares[i] ? square : nearestSquares[i];
    }
}

/// Sixteen times the median of the contributions that are finite and not 0.
double ordinaryMagnitude(std::span<const float> contributions) {
    std::vector<float> magnitudes;
    magnitudes.reserve(contributions.size());
    for (const float contribution : contributions)
        if (std::isfinite(contribution) && contribution != 0.0F)
            magnitudes.push_back(std::fabs(contribution));
    if (magnitudes.empty()) return 0.0;
    const auto median = magnitudes.begin() + static_cast<std::ptrdiff_t>(magnitudes.size() / 2);
    std::nth_element(magnitudes.begin(), median, magnitudes.end());
    return 16.0 * static_cast<double>(*median);
}

/// Beyond which distance a station does not matter to points whose nearest stations are at most so far away. A
/// wild contribution still matters with a lower weight, and one that is infinite or no number with any.
float decisiveRadius(const BarnesSweep& sweep, double farthestSquare, float contribution) {
    // Weights of widths that are not positive grow with the distance.
    if (!(sweep.width > 0.0) || !std::isfinite(contribution)) return sweep.radius;
    double exponent = decisiveExponent;
    if (std::fabs(contribution) > sweep.ordinary)
        exponent += std::numbers::ln2 * (std::ilogb(std::fabs(contribution) / sweep.ordinary) + 1);
    const double enough = std::sqrt(farthestSquare + exponent * sweep.width) * (1.0 + 1.0e-5);
    return enough < sweep.radius ? static_cast<float>(enough) : sweep.radius;
}

}  // namespace

BarnesSweep::BarnesSweep(float sweepRadius, double gaussianWidth, std::span<const float> brought,
                         std::size_t first)
    : radius(sweepRadius),
      width(gaussianWidth),
      contributions(brought),
      firstStation(first),
      ordinary(ordinaryMagnitude(brought)) {}

BarnesRow::BarnesRow(const grid::GridPlace& place, LineRange block)
    : place_(place),
      block_(block),
      longitudes_(columnLongitudes(place, block)),
      nearestSquares_(block.count),
      all_(block.count),
      wild_(block.count) {}

void BarnesRow::sum(float latitude, const StationView& stations, const BarnesSweep& sweep) {
    findReaching(latitude, stations, sweep);
    findNearest(sweep.radius);
    all_.clear();
    wild_.clear();
    const double farthestSquare = farthestNearest(sweep);
    const float ordinaryRadius = decisiveRadius(sweep, farthestSquare, 0.0F);
    for (const auto& [fromRow, station] : reaching_) {
        const float contribution = sweep.contributions[station];
        const bool isOrdinary = std::fabs(contribution) <= sweep.ordinary;
        const float radius =
            isOrdinary ? ordinaryRadius : decisiveRadius(sweep, farthestSquare, contribution);
        if (!(std::fabs(fromRow.dy) <= radius)) continue;
        add(fromRow, radius, sweep.width, contribution, all_);
        if (!isOrdinary && std::isfinite(contribution))
            add(fromRow, radius, sweep.width, std::fabs(contribution), wild_);
    }
}

/// Each of two sums of n terms, here and in exactly(), may be off by n roundings of 1.1e-16 of their magnitudes,
/// and by n stations that are left out, of which none brings more than 1e-16 of what the nearest station would with
/// an ordinary contribution.
double BarnesRow::uncertainty(std::size_t i, const BarnesSweep& sweep) const {
    constexpr double perStation = 1.0e-15;
    // A sum that is infinite or no number is so in any order: stations that make it so are never left out.
    if (!std::isfinite(all_.sums[i])) return 0.0;
    return perStation * static_cast<double>(reaching_.size() + 1) *
           (wild_.sums[i] + sweep.ordinary * all_.weights[i]);
}

void BarnesRow::findReaching(float latitude, const StationView& stations, const BarnesSweep& sweep) {
    reaching_.clear();
    for (std::size_t k = sweep.firstStation; k < stations.count(); ++k)
        if (mayReachRow(latitude - stations.latitudes[k], sweep.radius))
            reaching_.push_back({{latitude, stations.longitudes[k], stations.latitudes[k]}, k});
}

void BarnesRow::findNearest(float radius) {
    std::fill(nearestSquares_.begin(), nearestSquares_.end(), std::numeric_limits<float>::infinity());
    for (const Reaching& reaching : reaching_) {
        const auto [first, count] = reaching.fromRow.columnsWithin(radius, place_, block_);
        keepNearest(count, longitudes_.data() + first, reaching.fromRow, nearestSquares_.data() + first);
    }
}

/// The square of the largest distance from one of the points to its nearest station.
double BarnesRow::farthestNearest(const BarnesSweep& sweep) const {
    const double reach = squareOf(sweep.radius);
    double farthest = 0.0;
    for (const float square : nearestSquares_)
        farthest = square < reach ? std::max(farthest, static_cast<double>(square)) : farthest;
    return farthest;
}

void BarnesRow::add(const StationFromRow& station, float radius, double width, float contribution,
                    RowSums& sums) {
    const auto [first, count] = station.columnsWithin(radius, place_, block_);
    addGaussian({count, longitudes_.data() + first, sums.sums.data() + first, sums.weights.data() + first},
                station, radius, width, contribution);
}

WeightedSum BarnesRow::exactly(std::size_t i, const BarnesSweep& sweep) const {
    WeightedSum result;
    for (const auto& [fromRow, station] : reaching_) {
        const float d = fromRow.distanceOf(longitudes_[i]);
        if (!(d < sweep.radius)) continue;
        const double weight = base::exponential(-squareOf(d) / sweep.width);
        result.sum += weight * static_cast<double>(sweep.contributions[station]);
        result.weight += weight;
    }
    return result;
}

bool BarnesRow::isFaint(std::size_t i, const BarnesSweep& sweep) const {
    const double exponent = static_cast<double>(nearestSquares_[i]) / sweep.width;
    return exponent > 660.0 && exponent < 750.0;
}

std::size_t BarnesRow::stationAt(std::size_t i) const {
    return std::ranges::find_if(reaching_,
                                [&](const Reaching& r) { return r.fromRow.squareOf(longitudes_[i]) == 0.0F; })
        ->station;
}

}  // namespace velmar::analysis
