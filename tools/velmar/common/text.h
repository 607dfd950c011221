#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "common/places.h"
#include "files/gridFile.h"

namespace velmar::tool {

/// Something that went wrong with one file, told to the user in a sentence. The sentence does not name the
/// file: whoever reports it does.
struct Problem : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Converts a GBK text to UTF-8. Bytes that are no GBK, and control characters, become U+FFFD.
std::string gbkToUtf8(std::string_view text);

/// A value as a person writes it: up to six digits, no trailing zeros.
std::string plainNumber(double value);

/// The number that a person would have written to get this float: 0.1 for 0.1F, not 0.10000000149.
double writtenNumber(float value);

/// 30°N, 120°W, 0°, 180°. Longitudes are brought into -180 to 180.
std::string longitudeText(double degrees);
std::string latitudeText(double degrees);

/// "592.8 at 25°N 165°E"
std::string placedText(const PlacedValue& place);

/// The year that the year of a header stands for. Headers have four digits or two, of which 50 to 99 are years of the
/// last century and 0 to 49 of this one.
int fullYear(int year);

/// "2011-10-08 00:00", or the numbers as the file has them when they are no date.
std::string startTimeText(const files::FieldHeader& header);

/// The time the forecast is for, or nothing when the header's date or hours are out of range.
std::optional<std::string> validTimeText(const files::FieldHeader& header);

/// "500 hPa"; levels that are no pressure are given as they are, level 0 gives an empty text.
std::string levelText(int level);

}  // namespace velmar::tool
