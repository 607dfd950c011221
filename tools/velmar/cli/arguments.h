#pragma once

#include <string>
#include <vector>

#include "base/points.h"

namespace velmar::tool {

/// Reads "1,2.5,-3" as at least one number, all of them finite also as floats. Throws a UsageError
/// with the option's name.
std::vector<double> parseNumbers(const std::string& option, const std::string& text);

/// Reads "116.4,39.9" as a longitude and a latitude, in the same way.
base::LonLat parsePlace(const std::string& option, const std::string& text);

}  // namespace velmar::tool
