#pragma once

#include <span>
#include <vector>

#include "base/numbers.h"

namespace velmar::analysis {

/// Whether a value of a station file stands for none: 9999 or 999999, fractions left aside.
inline bool isMissing(float value) {
    const int whole = base::truncateToInt(value);
    return whole == 9999 || whole == 999999;
}

/// Stations somebody else owns: parallel lists of the same length.
struct StationView {
    std::span<const float> longitudes;  ///< degrees
    std::span<const float> latitudes;   ///< degrees
    std::span<const float> values;

    std::size_t count() const { return values.size(); }
};

/// Stations in parallel lists.
struct Stations {
    std::vector<float> longitudes;
    std::vector<float> latitudes;
    std::vector<float> values;

    void add(float longitude, float latitude, float value) {
        longitudes.push_back(longitude);
        latitudes.push_back(latitude);
        values.push_back(value);
    }
    StationView view() const { return {longitudes, latitudes, values}; }
};

}  // namespace velmar::analysis
