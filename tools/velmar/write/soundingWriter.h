#pragma once

#include <string>
#include <vector>

#include "read/soundingFile.h"
#include "write/geoJson.h"

namespace velmar::tool {

struct NamedText {
    std::string name;
    std::string text;
};

/// The indices and the freezing level, "-" where there is none.
std::vector<NamedText> indexTexts(const CheckedSounding& sounding);

/// "station 40001   39.93°N 116.4°E   607 m"
std::string stationText(const CheckedSounding& sounding);

/// A table of the levels and the indices of each sounding.
std::string soundingText(const CheckedSoundings& file);

/// An object; values of levels that are missing are null, indices that cannot be computed are not there.
Json soundingJson(const CheckedSoundings& file);

/// The levels as comma-separated values, a row a level; missing values are empty. The heading stands above the
/// rows of all files.
extern const char* const soundingHeading;
std::string soundingRows(const CheckedSoundings& file);

}  // namespace velmar::tool
