#pragma once

#include <span>
#include <vector>

namespace velmar::analysis {

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
