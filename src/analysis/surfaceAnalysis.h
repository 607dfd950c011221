#pragma once

#include "analysis/analysisArea.h"
#include "analysis/methods.h"
#include "frame/block.h"
#include "frame/outcome.h"

namespace velmar::analysis {

/// Analyses one element of a file of surface reports: the bare grid, which is also written to a diagnostic
/// file. Null for another method and without a grid. Failures are those of readSurfaceFile.
frame::Outcome<frame::ResultBlock> analyseSurfaceFile(const char* path, Method method, int element,
                                                      const AreaRequest& request, float maskRadius);

}  // namespace velmar::analysis
