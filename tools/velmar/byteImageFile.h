#pragma once

#include <string>

#include "fileHead.h"
#include "frame/grid.h"
#include "shade/byteImage.h"

namespace velmar::tool {

inline constexpr int byteImageType = 13;

inline bool isByteImage(const FileHead& head) { return head.kind.type == byteImageType; }

/// A byte image, read in full.
struct ByteImageFile {
    std::string title;       ///< UTF-8
    std::string time;        ///< "2009-09-21 00:00"; empty where the header has no date
    frame::Grid grid;        ///< 0 to 254, missingInFiles where there is no picture
    frame::Lattice lattice;  ///< ends at the last column and row, whatever the header says

    bool circlesGlobe() const;
};

/// A byte image as the library reads it: views into the head's file. A Problem when it is cut off or empty.
shade::ByteImage readByteImage(const FileHead& head);

ByteImageFile readByteImageFile(const FileHead& head);

}  // namespace velmar::tool
