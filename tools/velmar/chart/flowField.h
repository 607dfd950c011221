#pragma once

#include "chart/paper/mapFrame.h"
#include "read/windFile.h"

namespace velmar::tool {

/// The field on which the streamlines of a map are traced, without titles. One that circles the globe has its
/// seam on the side away from the map, where lines may end unseen. Of a grid too fine for the map
/// it has every second, third, ... column and row, because lines keep a distance of a grid length or so.
WindGrid flowField(const WindGrid& file, const MapFrame& map);

/// The density at which the streamlines of a field keep a distance on a map that can be read well.
int densityFor(const WindGrid& field, const MapFrame& map);

}  // namespace velmar::tool
