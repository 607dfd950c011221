#pragma once

#include <vector>

#include "read/geoPoints.h"
#include "read/gridFile.h"

namespace velmar::tool {

/// An area to be painted: a view into the coordinates of its shading. Its last point repeats the first.
struct PaintedArea : GeoPoints {
    float level;
    int colour;

    bool counterClockwise() const;
};

/// Areas in the order in which they are painted.
struct Shading {
    base::Floats coordinates;  ///< of the polygons
    std::vector<PaintedArea> polygons;
};

/// What is above the levels, which are in rising order, each once; missingInFiles is no data. Nothing to
/// paint gives no polygons; a Problem when the library gives up.
///
///   stripRows  rows that are shaded at a time; all when below 1
Shading shadeGrid(const grid::GridView& grid, const grid::Lattice& lattice, const std::vector<float>& levels,
                  int stripRows);

}  // namespace velmar::tool
