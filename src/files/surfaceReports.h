#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "base/scanner.h"

namespace velmar::files {

/// Header of a file of surface reports ("diamond" type 1). Keyword and title are views into the file's text;
/// fields that did not convert are empty or 0.
struct SurfaceHeader {
    std::string_view keyword;
    int type = 0;
    std::string_view title;
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int reportCount = 0;

    static constexpr int firstLineCount = 3;
    static constexpr int fieldCount = 8;
};

/// Returns how many of the fields converted.
int scanSurfaceHeader(base::TextScanner& in, SurfaceHeader& header);

/// A report: the fields as the file has them, numbered from 1.
struct SurfaceReport {
    static constexpr std::size_t fieldCount = 24;

    std::array<float, fieldCount> fields;

    float field(std::size_t number) const { return fields[number - 1]; }
    float longitude() const { return field(2); }
    float latitude() const { return field(3); }
};

/// Reads the next report; returns whether all of its fields converted.
bool readSurfaceReport(base::TextScanner& in, SurfaceReport& report);

}  // namespace velmar::files
