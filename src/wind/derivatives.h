#pragma once

#include "base/floats.h"
#include "grid/grid.h"

namespace velmar::wind {

enum class WindDerivative { divergence, vorticity };

/// Two components of the wind on one grid: the eastward and the northward one for the divergence, in the other order for
/// the vorticity.
struct WindPair {
    grid::GridView p;
    grid::GridView q;
    float missing;
};

/// Centred differences of p along longitude and of q, times the cosine of latitude, along latitude; their sum for
/// the divergence and difference for the relative vorticity, divided by the earth's radius times the cosine of latitude.
/// Returns a bare grid in 1/s.
base::Floats differentiate(const WindPair& wind, const grid::GridPlace& place, WindDerivative derivative);

}  // namespace velmar::wind
