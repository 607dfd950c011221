#pragma once

#include <cmath>
#include <string>

#include "base/floats.h"
#include "common/places.h"
#include "files/gridFile.h"
#include "grid/grid.h"
#include "read/fileHead.h"

namespace velmar::tool {

/// A grid file, read in full or yet to be written.
struct GridFile {
    files::GridHeader header;  ///< its view of the title is empty: titleBytes has it
    std::string title;         ///< UTF-8
    std::string titleBytes;    ///< GBK
    base::Floats storage;      ///< of the values
    grid::GridView values;
};

/// Reads a grid file (type 4); a Problem when that fails or the file is of another kind.
GridFile readGridFile(const std::string& path);

/// The same where the head of the file is known already.
GridFile readGridFile(const FileHead& head);

/// What an error code of the readers of grid files means, in words.
std::string gridReaderProblem(int code);

/// A Problem unless all numbers of the lattice are finite.
void requireFinite(const grid::Lattice& lattice);

/// The grid with its first column again behind its last.
grid::Grid closedGrid(const grid::GridView& grid);

inline bool isPresent(float value) { return value != grid::missingInFiles && std::isfinite(value); }

/// Smallest and largest value of a grid, and where they are.
struct PlacedExtremes {
    std::size_t present = 0;  ///< values that are neither missing nor infinite nor not-a-number
    std::size_t missing = 0;
    PlacedValue smallest{};
    PlacedValue largest{};
};

/// Looks at the grid points inside an area, or at all when none is given. Longitudes that differ by whole
/// circles are the same.
PlacedExtremes findExtremes(const grid::GridView& grid, const grid::Lattice& lattice,
                            const GeoBox* area = nullptr);

}  // namespace velmar::tool
