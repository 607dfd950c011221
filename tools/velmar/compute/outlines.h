#pragma once

#include <vector>

#include "compute/shading.h"

namespace velmar::tool {

/// A corner of an outline, in columns and rows of the grid, counted from 0.
struct OutlinePoint {
    float column;
    float row;
    bool sharp;  ///< at an edge of the grid or of its data, not on a line of the level
};

/// The last point joins the first. Outlines of areas run counter-clockwise where longitude and latitude rise
/// with columns and rows, those of their holes the other way.
using AreaOutline = std::vector<OutlinePoint>;

/// Joins the areas of a shading of one level in strips of one row: what two strips have in common is no
/// outline. The shading is in columns and rows.
std::vector<AreaOutline> joinStrips(const Shading& shading);

}  // namespace velmar::tool
