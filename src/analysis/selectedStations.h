#pragma once

#include "analysis/analysisArea.h"
#include "analysis/stations.h"

namespace velmar::analysis {

/// Whether a value of a station file stands for none: 9999 or 999999, fractions left aside.
bool isMissing(float value);

/// The stations with a value, in the order in which they were found, how far they reach and between which
/// limits their values lie.
struct SelectedStations {
    Stations stations;
    Extent extent;
    float largest = -1e16F;
    float smallest = 1e16F;

    void add(float longitude, float latitude, float value);

    /// The stations that go into a field. The last one is deliberately left out: fields have always been made
    /// so.
    StationView used() const;

    /// Prints how many stations are used, the largest and the smallest value. Without stations it says -1.
    void tell() const;
};

}  // namespace velmar::analysis
