#pragma once

#include <string>

#include "write/geoJson.h"

namespace velmar::tool {

struct ValueRange {
    float smallest;
    float largest;
};

Json rangeJson(const ValueRange& range);
std::string rangeText(const ValueRange& range);

}  // namespace velmar::tool
