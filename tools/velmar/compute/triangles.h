#pragma once

#include <vector>

#include "compute/contours.h"
#include "read/stationFile.h"
#include "triangles/triangulation.h"

namespace velmar::tool {

/// Contour lines drawn straight from stations, and the triangles that they were drawn over.
struct StationContours {
    analysis::Stations stations;  ///< brought together across the seam of the longitudes
    std::vector<triangles::Triangle> triangles;
    ContourSet lines;  ///< without a grid
};

/// Draws the lines at the levels, which are rising. A Problem when there are too many of them, or no first
/// triangle.
StationContours contourStations(const analysis::Stations& stations, const std::vector<float>& levels);

}  // namespace velmar::tool
