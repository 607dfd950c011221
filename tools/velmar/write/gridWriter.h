#pragma once

#include <string>

#include "read/gridFile.h"

namespace velmar::tool {

/// A grid as a grid file (type 4). Every number has the digits that give the same float when it is read.
std::string gridFileText(const GridFile& file);

/// A grid as comma-separated values, a row a point: longitude, latitude, value. Points without data have an
/// empty value.
std::string commaSeparated(const GridFile& file);

}  // namespace velmar::tool
