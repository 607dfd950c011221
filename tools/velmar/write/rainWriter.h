#pragma once

#include <string>

#include "compute/rainSum.h"
#include "read/stationFile.h"

namespace velmar::tool {

/// A table, a row a station, under a line that says what was added up.
std::string rainText(const RainSum& sum);

/// Comma-separated values, a row a station: station, longitude, latitude, height, rain.
std::string commaSeparated(const RainSum& sum);

/// A GeoJSON FeatureCollection of points with the properties station, height and rain.
std::string geoJson(const RainSum& sum);

/// A file of station values (type 3) of the time of the last file.
std::string stationFileText(const RainSum& sum);

/// The sums as the values of a station file, for a chart.
StationFile stationFileOf(const RainSum& sum);

}  // namespace velmar::tool
