#pragma once

#include <string>

#include "read/stationFile.h"
#include "write/geoJson.h"

namespace velmar::tool {

// What a station file holds: its time and level, its levels, how many stations it has and where they lie, and
// the range of each element's values.

void addStationsJson(const StationFile& file, Json& json);
void addStationsText(const StationFile& file, std::string& text);

}  // namespace velmar::tool
