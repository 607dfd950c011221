#pragma once

#include <optional>
#include <vector>

#include "analysis/area.h"
#include "analysis/barnes.h"
#include "analysis/stations.h"
#include "base/outcome.h"
#include "files/reports.h"

namespace velmar::capi {

/// The stations of a call's lists; nullopt when a list is missing.
std::optional<analysis::StationView> stationsOf(int n, const float* lon, const float* lat,
                                                const float* value);

/// The parameters for hosts: the first station of a list takes no part in the first guess. This is established
/// behaviour.
inline analysis::BarnesParameters barnesForHosts(analysis::BarnesParameters parameters) {
    parameters.firstGuessFrom = 1;
    return parameters;
}

/// The area that a call's arguments ask for.
inline analysis::AreaRequest areaRequest(int autoBounds, float startLon, float endLon, float startLat,
                                         float endLat, float latStep, float lonStep) {
    return {autoBounds != 0, {startLon, endLon, startLat, endLat}, lonStep, latStep};
}

/// The stations with a value, in the order in which they were found, their extent and the range of their values.
struct SelectedStations {
    analysis::Stations stations;
    base::LonLatBox extent;
    float largest = -1e16F;
    float smallest = 1e16F;

    void add(float longitude, float latitude, float value);

    /// The stations that go into a field. The last one is deliberately left out: this is established behaviour.
    analysis::StationView used() const;

    /// Prints how many stations are used (-1 without stations), and the largest and the smallest value.
    void tell() const;
};

/// The reports of a file that stations may be selected from.
struct SurfaceFile {
    int promised;  ///< reports, according to the header
    std::vector<files::SurfaceReport>
        reports;  ///< all that could be read but the last, which is deliberately unused
};

/// Reads a file of surface reports as far as they go and prints how many there are. Failures: -1 no file, -2
/// first line, -3 type number, -4 date line.
base::Outcome<SurfaceFile> readSurfaceFile(const char* path);

/// The value of a report that an element code stands for; nullopt for an unknown code.
using ElementChoice = std::optional<float> (*)(const files::SurfaceReport& report, int element);

/// Selects the reports that have a value and prints a summary; values below -1000 are printed one by one.
SelectedStations selectStations(const std::vector<files::SurfaceReport>& reports, int element,
                                ElementChoice choose);

}  // namespace velmar::capi
