#pragma once

#include "analysis/analysisArea.h"
#include "analysis/stations.h"
#include "frame/block.h"

namespace velmar::analysis {

/// How station files are analysed; hosts pass the number.
enum class Method : int { cressman = 0, barnes = 1 };

/// The analyses with the parameters that station files get. Null without a grid.
frame::ResultBlock runCressman(const AnalysisArea& area, const StationView& stations, float maskRadius);

/// The bounds are cut to whole degrees.
frame::ResultBlock runBarnes(float radius, const AnalysisArea& area, const StationView& stations,
                             float maskRadius);

}  // namespace velmar::analysis
