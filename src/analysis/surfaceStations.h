#pragma once

#include <optional>
#include <vector>

#include "analysis/selectedStations.h"
#include "analysis/surfaceReports.h"
#include "frame/outcome.h"

namespace velmar::analysis {

/// The reports of a file that stations may be selected from.
struct SurfaceFile {
    int promised;  ///< reports, according to the header
    std::vector<SurfaceReport>
        reports;  ///< all that could be read but the last, which is deliberately unused
};

/// Reads a file of surface reports as far as they go and prints how many there are. Failures: -1 no file, -2
/// first line, -3 type number, -4 date line.
frame::Outcome<SurfaceFile> readSurfaceFile(const char* path);

/// The value that is analysed of a report, for an element code. Nothing for a code that there is not.
using ElementChoice = std::optional<float> (*)(const SurfaceReport& report, int element);

/// Selects the reports that have a value and prints what there is; values below -1000 are told one by one.
SelectedStations selectStations(const std::vector<SurfaceReport>& reports, int element, ElementChoice choose);

}  // namespace velmar::analysis
