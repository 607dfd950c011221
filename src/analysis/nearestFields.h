#pragma once

#include "analysis/analysisArea.h"
#include "analysis/stations.h"
#include "frame/block.h"
#include "frame/outcome.h"

namespace velmar::analysis {

/// Fields whose points take after the nearest station less than a radius (degrees) away, and are -1 without
/// one. The block has the place of the grid before its values; a diagnostic file has the grid too.

/// 1 where the element of a file's surface reports is above 0, else -1. Failures are those of readSurfaceFile.
frame::Outcome<frame::ResultBlock> flagSurfaceFile(const char* path, int element, const AreaRequest& request,
                                                   float radius);

/// The value of the nearest station, or -1 where it is negative.
frame::ResultBlock spreadNearest(const StationView& stations, const AreaRequest& request, float radius);

}  // namespace velmar::analysis
