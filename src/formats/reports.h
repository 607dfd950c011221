#pragma once

#include "frame/block.h"

namespace velmar::formats {

/// A type of station file whose records are rows of numbers.
struct ReportLayout {
    std::size_t headerIntegers;  ///< behind keyword, type and description; the last is the number of records
    std::size_t fields;          ///< numbers of a record in the file
    std::size_t extraFields;     ///< numbers that follow where the last two fields say so
};

inline constexpr ReportLayout surfaceReports{5, 24, 2};   // type 1
inline constexpr ReportLayout upperAirReports{6, 10, 0};  // type 2
inline constexpr ReportLayout forecastReports{6, 12, 0};  // type 8
inline constexpr ReportLayout shortReports{1, 4, 0};      // type 16

/// Reads a file of reports: the integers of its header, with the number of reports that could be read, then
/// the reports. A report without the extra fields that its type can have gets 9999 for them. Nothing when the file
/// cannot be opened, its header not be read, or none of the reports that it promises.
frame::ResultBlock readReports(const char* path, const ReportLayout& layout);

}  // namespace velmar::formats
