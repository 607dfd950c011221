#pragma once

#include "files/file.h"
#include "grid/grid.h"

namespace velmar::files {

/// A grid to be written: its values, and the place and sizes for its header. There are no values when a size is not
/// positive.
struct WrittenGrid {
    grid::GridView values;
    grid::Lattice lattice;
};

/// What the header of a grid file says about drawing.
struct DrawingHints {
    float interval;
    float startValue;
    float endValue;
};

/// Writes a grid file ("diamond" type 4) to a text stream and closes the stream. The title and the date are always
/// the same. For a grid without values, only the header is written.
void writeAnalysisGrid(OpenFile file, const WrittenGrid& grid, const DrawingHints& hints);

/// The same to a diagnostic file of this name in the current directory, where one may be written.
///
///   beingRead  the file that the grid is made from; null when there is none
void writeDiagnosticGrid(const char* name, const char* beingRead, const WrittenGrid& grid,
                         const DrawingHints& hints);

}  // namespace velmar::files
