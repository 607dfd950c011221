#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "base/scanner.h"

namespace velmar::files {

/// A type of station file whose records are rows of numbers.
struct ReportLayout {
    std::size_t headerIntegers;  ///< after keyword, type and description; the last is the number of records
    std::size_t fields;          ///< numbers of a record in the file
    std::size_t extraFields;     ///< numbers that follow where the last two fields say so
    /// Bit k: field k is read as an integer, so that the next one begins at a decimal point in it.
    std::uint32_t wholeFields = 0;
};

inline constexpr ReportLayout surfaceReports{5, 24, 2};   // type 1
inline constexpr ReportLayout upperAirReports{6, 10, 0};  // type 2
inline constexpr ReportLayout forecastReports{6, 12, 0};  // type 8
inline constexpr ReportLayout shortReports{1, 4, 0};      // type 16

/// Surface reports as analyses have always read them: number and class of the station are integers, and extra fields
/// are not looked for.
inline constexpr ReportLayout analysedReports{5, 24, 0, 1U << 0U | 1U << 4U};

/// A surface report: the fields as the file has them, numbered from 1.
struct SurfaceReport {
    std::array<float, analysedReports.fields> fields;

    float field(std::size_t number) const { return fields[number - 1]; }
    float longitude() const { return field(2); }
    float latitude() const { return field(3); }
};

/// Reads a report, which has room for the extra fields that its type can have; returns whether it is complete. The
/// extra fields are in the file only where the last two others are 1 and 2; they are 9999 otherwise.
bool readReport(base::TextScanner& in, const ReportLayout& layout, std::span<float> report);

}  // namespace velmar::files
