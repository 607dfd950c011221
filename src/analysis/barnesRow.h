#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "analysis/columnBlocks.h"
#include "analysis/distance.h"
#include "analysis/stations.h"

namespace velmar::analysis {

/// One sweep over the grid: how far stations reach, how their weights fall off, and what each brings.
struct BarnesSweep {
    float radius;                          ///< degrees
    double width;                          ///< of the Gaussian exp(-d^2 / width), square degrees
    std::span<const float> contributions;  ///< values, or what estimates lack
    std::size_t firstStation;              ///< those before it take no part
    double ordinary;                       ///< magnitude above which a contribution is wild, as few are

    BarnesSweep(float sweepRadius, double gaussianWidth, std::span<const float> brought, std::size_t first);
};

/// Weighted sums of what stations bring to a point.
struct WeightedSum {
    double sum = 0.0;
    double weight = 0.0;
};

/// The sums of a row's points in a block of columns.
///
/// A Gaussian is soon so low that a station cannot be told from none beside a nearer one. So the distance of
/// the nearest station is found first, for all these points, and sums are taken over stations not much
/// farther than that; one with a wild contribution vanishes a little farther away. They may be off in the last
/// digits of a double; `uncertainty` says how much, and `exactly` gives those of all stations in the order of
/// the list, for points where that decides the rounding.
class BarnesRow {
public:
    BarnesRow(const grid::GridPlace& place, LineRange block);

    /// Sums for the row at a latitude.
    void sum(float latitude, const StationView& stations, const BarnesSweep& sweep);

    std::size_t size() const { return longitudes_.size(); }
    WeightedSum at(std::size_t i) const { return {all_.sums[i], all_.weights[i]}; }
    /// How far a sum may be from the one that, over the same weight, gives the quotient of `exactly`.
    double uncertainty(std::size_t i, const BarnesSweep& sweep) const;
    /// Whether all weights at a point are so small that doubles have few digits left for them, or none. Then
    /// only `exactly` knows.
    bool isFaint(std::size_t i, const BarnesSweep& sweep) const;
    WeightedSum exactly(std::size_t i, const BarnesSweep& sweep) const;

    /// Whether a station stands at the very place of a point, and the first such station.
    bool isAtStation(std::size_t i) const { return nearestSquares_[i] == 0.0F; }
    std::size_t stationAt(std::size_t i) const;

private:
    /// A station that can reach the row.
    struct Reaching {
        StationFromRow fromRow;
        std::size_t station;
    };

    void findReaching(float latitude, const StationView& stations, const BarnesSweep& sweep);
    void findNearest(float radius);
    double farthestNearest(const BarnesSweep& sweep) const;
    void add(const StationFromRow& station, float radius, double width, float contribution, RowSums& sums);

    const grid::GridPlace place_;
    const LineRange block_;
    const std::vector<float> longitudes_;
    std::vector<Reaching> reaching_;
    std::vector<float> nearestSquares_;
    RowSums all_;
    RowSums wild_;  ///< the same of the magnitudes of finite wild contributions only
};

}  // namespace velmar::analysis
