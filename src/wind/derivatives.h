#pragma once

#include "base/floats.h"
#include "grid/grid.h"

namespace velmar::wind {

/// How the difference along latitude is combined with that along longitude.
enum class Combination { sum, difference };

/// Two fields on one lattice, to be differentiated.
struct FieldPair {
    grid::GridView p;
    grid::GridView q;
    float missing;
};

/// Centred differences of p along longitude and of q, times the cosine of latitude, along latitude; their sum or
/// difference, divided by the earth's radius times the cosine of latitude. Of eastward and northward wind the
/// sum is the divergence; of northward and eastward wind, in this order, the difference is the relative
/// vorticity. Returns a bare grid in 1/s.
base::Floats differentiate(const FieldPair& fields, const grid::GridPlace& place, Combination combination);

}  // namespace velmar::wind
