#pragma once

#include <optional>
#include <string_view>

#include "grid/grid.h"

namespace velmar::files {

/// A byte image file ("March" type 13): a satellite picture or another field in one byte a point. Title and
/// pixels are views into the file's bytes.
struct ByteImage {
    std::string_view title;  ///< GBK
    int kind;
    grid::Lattice lattice;
    int nx;
    int ny;
    std::string_view pixels;  ///< nx * ny bytes, row after row
};

/// Reads the bytes of a file. What its header lacks is 0. Nullopt when the keyword is another, or when the file is
/// shorter than its header says.
std::optional<ByteImage> readByteImage(std::string_view file);

/// The pixels as numbers: 0 to 254, and -1 for 255.
grid::Grid valuesOf(const ByteImage& image);

/// The missing value: 20 in images of kind 5, in all others 255, which no point has.
float undefinedValueOf(const ByteImage& image);

}  // namespace velmar::files
