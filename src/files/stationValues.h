#pragma once

#include <string_view>
#include <vector>

#include "base/outcome.h"
#include "base/records.h"
#include "base/scanner.h"

namespace velmar::files {

/// Header of a file of station values ("diamond" type 3), up to the two counts of values per station and of
/// stations. Keyword and title are views into the file's text.
struct StationValuesHeader {
    std::string_view keyword;
    int type;
    std::string_view title;
    int year;
    int month;
    int day;
    int hour;
    int level;
    std::vector<float> contourLevels;
    int smoothing;
    float boldValue;
    std::vector<float> boundary;  ///< pairs of longitude and latitude, degrees
};

/// Failures: -2 first line, -3 type number, -4 second line, -5 a contour level, -6 the three items in front
/// of the boundary, -7 the boundary.
base::Outcome<StationValuesHeader> readStationValuesHeader(base::TextScanner& in);

/// Returns how many of the fields converted.
int scanStationValue(base::TextScanner& in, base::StationValue& station);

}  // namespace velmar::files
