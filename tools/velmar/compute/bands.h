#pragma once

#include <optional>
#include <span>
#include <vector>

#include "grid/grid.h"
#include "shade/outlines.h"

namespace velmar::tool {

/// A ring of a polygon, its last point joined to the first.
using BandRing = std::span<const shade::OutlinePoint>;

/// The outline, which runs counter-clockwise where x rises with columns and y with rows, then the holes, which run the
/// other way.
using BandPolygon = std::vector<BandRing>;

/// What lies between two levels: above the lower one and not above the upper one.
struct Band {
    std::optional<float> lower;  ///< none: all that is not above the upper one
    std::optional<float> upper;
    std::vector<BandPolygon> polygons;
};

/// The bands of a grid. Where the grid has data, each point belongs to one of them.
struct BandSet {
    std::vector<shade::AreaOutlines> outlines;  ///< of each band
    std::vector<Band> bands;                    ///< the lowest first
};

/// Divides a grid into bands at levels, which rise.
BandSet bandsOf(const grid::GridView& grid, const std::vector<float>& levels);

}  // namespace velmar::tool
