#pragma once

#include <string>

#include "read/windFile.h"
#include "write/geoJson.h"

namespace velmar::tool {

/// The winds of a field. The strongest is the first of its speed, row after row from the south.
struct WindSummary {
    std::size_t present = 0;
    std::size_t missing = 0;  ///< points that lack a component
    double meanSpeed = 0;
    PlacedValue strongest{};
    int direction =
        0;  ///< from which the strongest blows: 1 to 360 degrees clockwise from north, 0 for a calm
};

WindSummary summarise(const WindFile& file);

void addWindJson(const WindSummary& summary, Json& json);
void addWindText(const WindSummary& summary, std::string& text);

}  // namespace velmar::tool
