#pragma once

#include <vector>

#include "compute/analysisGrid.h"

namespace velmar::tool {

enum class AnalysisMethod { barnes, cressman, nearest };

/// Spreads stations, of which one at least must lie on the grid, over a grid. Points that no station reaches
/// are missingInFiles. A Problem when there is no such station.
///
///   maskRadius  above 0: points with no station so near (degrees) have no data
base::Floats analyseStations(AnalysisMethod method, const GridPlan& plan,
                             const analysis::StationView& stations, float maskRadius);

}  // namespace velmar::tool
