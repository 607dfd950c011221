#pragma once

#include "frame/block.h"
#include "frame/outcome.h"

namespace velmar::formats {

/// Reads a file of station values ("diamond" type 3), with any number of values per station, as ReadVelmarData3
/// describes it. Failures: -1 (told on standard error), -2 first line, -3 type number, -4 second line, -5 a
/// contour level, -6 the items in front of the boundary, -7 the boundary, -9 the two counts.
frame::Outcome<frame::ResultBlock> readStationValues(const char* path);

}  // namespace velmar::formats
