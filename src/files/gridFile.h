#pragma once

#include <span>
#include <string_view>

#include "base/outcome.h"
#include "base/scanner.h"
#include "grid/grid.h"

namespace velmar::files {

/// The fields that the grid files and the wind grid files begin with, after keyword, type and title.
struct FieldHeader {
    int year;
    int month;
    int day;
    int hour;
    int forecastHour;
    int level;  ///< hPa
    grid::Lattice lattice;
    int nx;
    int ny;

    static constexpr int fieldCount = 14;
};

/// Returns how many of the fields converted.
int scanFieldHeader(base::TextScanner& in, FieldHeader& header);

/// Header of a grid file ("diamond" type 4). The title is a view into the file's text, in GBK.
struct GridHeader {
    std::string_view title;
    FieldHeader field;
    float interval;
    float startValue;
    float endValue;
    float smoothing;
    float boldValue;
};

/// Failures: -2 first line, -3 type number, -4 keyword, -5 the rest of the header.
base::Outcome<GridHeader> readGridHeader(base::TextScanner& in);

/// The failure codes of a value that cannot be read, in a cyclic grid and in any other.
struct UnreadableValue {
    int circling;
    int other;
};

/// Whether nx times the longitude step lies between 359.5 and 360.01, so that the first column follows the last.
bool circlesGlobe(const FieldHeader& field);

/// Reads a grid file's values. A cyclic grid is closed: its first column is repeated after its last.
base::Outcome<grid::Grid> readGridValues(base::TextScanner& in, const FieldHeader& field,
                                         UnreadableValue unreadable);

}  // namespace velmar::files
