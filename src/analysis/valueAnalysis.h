#pragma once

#include "analysis/analysisArea.h"
#include "analysis/methods.h"
#include "frame/block.h"
#include "frame/outcome.h"

namespace velmar::analysis {

/// Reads a file of station values and analyses it: contour levels, stations and grid in one block. A negative
/// method makes no grid, an unknown one a grid of undefined points. Failures: -1 no file, -2 to -7 those of
/// readStationValuesHeader, -8 not one value a station, -9 no count of stations.
frame::Outcome<frame::ResultBlock> analyseStationValues(const char* path, Method method,
                                                        const AreaRequest& request, float maskRadius);

}  // namespace velmar::analysis
