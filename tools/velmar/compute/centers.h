#pragma once

#include <vector>

#include "compute/contours.h"

namespace velmar::tool {

/// A centre of a high or a low.
struct ProminentCenter {
    bool high;
    float value;
    double longitude;
    double latitude;
    float prominence;  ///< how far it stands out from its surroundings
};

/// The centres of a grid that stand out by at least so much, the most prominent first. None is missing or
/// touches a missing value.
std::vector<ProminentCenter> prominentCenters(const ContourSet& set, float leastProminence);

}  // namespace velmar::tool
