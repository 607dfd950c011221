#pragma once

#include <string>

#include "read/lineMap.h"
#include "write/geoJson.h"

namespace velmar::tool {

// What is in a file of lines, as the info command says it.
void addMapJson(const LineMap& map, Json& json);
void addMapText(const LineMap& map, std::string& text);

}  // namespace velmar::tool
