#pragma once

#include "files/gridFile.h"

namespace velmar::files {

/// A wind field: eastward and northward wind, m/s, of equal size, rows from south to north.
struct WindFile {
    files::FieldHeader header;  ///< with the latitudes in the order of the rows; nx and ny are positive
    grid::Grid u;
    grid::Grid v;
};

/// Reads a wind file ("diamond" type 11; the type is not checked). Where its latitude step is not above 0, its
/// rows are reversed.
///
///   lattice  receives the four bounds as soon as the header is read (or those of them that convert), and the two
///            steps when both grids have been read
///
/// Failures: -1 cannot be opened (reported on standard error), -2 first line, -3 keyword, -4 header or empty grids,
/// -5 u and -6 v from south to north, -7 and -8 from north to south.
base::Outcome<WindFile> readWindFile(const char* path, grid::Lattice& lattice);

/// The same from the text of a file.
base::Outcome<WindFile> readWindFile(base::TextScanner& in, grid::Lattice& lattice);

}  // namespace velmar::files
