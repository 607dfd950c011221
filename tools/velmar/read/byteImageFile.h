#pragma once

#include <string>

#include "grid/grid.h"
#include "read/fileHead.h"

namespace velmar::tool {

/// A byte image, read in full.
struct ByteImageFile {
    std::string title;      ///< UTF-8
    std::string time;       ///< "2009-09-21 00:00"; empty where the header has no date
    grid::Grid grid;        ///< 0 to 254, missingInFiles where there is no picture
    grid::Lattice lattice;  ///< ends at the last column and row, whatever the header says

    bool circlesGlobe() const;
};

/// Reads a byte image; a Problem when it is cut off or empty.
ByteImageFile readByteImageFile(const FileHead& head);

}  // namespace velmar::tool
