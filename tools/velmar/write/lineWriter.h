#pragma once

#include <string>

#include "compute/triangles.h"

namespace velmar::tool {

/// The lines as a GeoJSON FeatureCollection, a feature a line: a LineString with the properties value and
/// closed, or a Point where a line has one point only. Longitudes are those of the grid, lines are not cut at
/// the date line.
std::string geoJson(const ContourSet& set);

/// The lines as comma-separated values, a row a point: line (counted from 1), value, closed, longitude,
/// latitude.
std::string commaSeparated(const ContourSet& set);

/// The lines, then the triangles, as a GeoJSON FeatureCollection.
std::string geoJson(const StationContours& contours);

}  // namespace velmar::tool
