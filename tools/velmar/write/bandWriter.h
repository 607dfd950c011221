#pragma once

#include <string>

#include "compute/bands.h"
#include "grid/grid.h"

namespace velmar::tool {

/// The bands as a GeoJSON FeatureCollection: a MultiPolygon each, with the properties lower and upper, which are null
/// where there is no level. Outlines run counter-clockwise and holes clockwise, as the format asks.
std::string geoJson(const BandSet& set, const grid::Lattice& lattice);

}  // namespace velmar::tool
