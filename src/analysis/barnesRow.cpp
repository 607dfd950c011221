#include "analysis/barnesRow.h"

#include <algorithm>
#include <limits>

#include "frame/elementary.h"
#include "frame/wideVectors.h"

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
        const double weight = frame::exponential(-squareOf(d) / width);
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

}  // namespace

BarnesSweep::BarnesSweep(float sweepRadius, double gaussianWidth, std::span<const float> brought,
                         std::size_t first)
    : radius(sweepRadius), width(gaussianWidth), contributions(brought), firstStation(first) {
    for (const float contribution : contributions)
        largest = std::isfinite(contribution) ? std::max(largest, std::fabs(contribution))
                                              : std::numeric_limits<float>::infinity();
}

BarnesRow::BarnesRow(const frame::GridPlace& place, int nx)
    : place_(place),
      longitudes_(columnLongitudes(place, nx)),
      nearestSquares_(longitudes_.size()),
      sums_(longitudes_.size()),
      weights_(longitudes_.size()) {}

void BarnesRow::sum(float latitude, const StationView& stations, const BarnesSweep& sweep) {
    findReaching(latitude, stations, sweep);
    findNearest(sweep.radius);
    std::fill(sums_.begin(), sums_.end(), 0.0);
    std::fill(weights_.begin(), weights_.end(), 0.0);
    const float radius = farEnough(sweep);
    for (const auto& [fromRow, station] : reaching_)
        if (std::fabs(fromRow.dy) <= radius) add(fromRow, radius, sweep, sweep.contributions[station]);
    // Each of two sums of n terms, here and in exactly(), may be off by n roundings of 1.1e-16, by n stations
    // that are left out, of which none weighs more.
    constexpr double perStation = 1.0e-15;
    uncertainty_ = perStation * static_cast<double>(reaching_.size() + 1) * sweep.largest;
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
        const auto [first, count] = reaching.fromRow.columnsWithin(radius, place_, size());
        keepNearest(count, longitudes_.data() + first, reaching.fromRow, nearestSquares_.data() + first);
    }
}

/// A radius beyond which no station matters to any point of the row.
float BarnesRow::farEnough(const BarnesSweep& sweep) const {
    const double reach = squareOf(sweep.radius);
    double farthest = 0.0;
    for (const float square : nearestSquares_)
        farthest = square < reach ? std::max(farthest, static_cast<double>(square)) : farthest;
    const double enough = std::sqrt(farthest + decisiveExponent * sweep.width) * (1.0 + 1.0e-5);
    // Widths that are not positive make weights grow with the distance.
    return sweep.width > 0.0 && enough < sweep.radius ? static_cast<float>(enough) : sweep.radius;
}

void BarnesRow::add(const StationFromRow& station, float radius, const BarnesSweep& sweep,
                    float contribution) {
    const auto [first, count] = station.columnsWithin(radius, place_, size());
    addGaussian({count, longitudes_.data() + first, sums_.data() + first, weights_.data() + first}, station,
                radius, sweep.width, contribution);
}

WeightedSum BarnesRow::exactly(std::size_t i, const BarnesSweep& sweep) const {
    WeightedSum result;
    for (const auto& [fromRow, station] : reaching_) {
        const float d = fromRow.distanceOf(longitudes_[i]);
        if (!(d < sweep.radius)) continue;
        const double weight = frame::exponential(-squareOf(d) / sweep.width);
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
