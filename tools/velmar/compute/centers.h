#pragma once

#include <vector>

#include "compute/globeGrid.h"

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
///
///   blockSize  how many columns and rows count as one place: of the points there only the extreme one can be a centre,
///              and prominences are a little too small
std::vector<ProminentCenter> prominentCenters(const GlobeGrid& grid, float leastProminence,
                                              int blockSize = 1);

}  // namespace velmar::tool
