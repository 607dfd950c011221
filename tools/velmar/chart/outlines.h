#pragma once

#include <vector>

#include "shading.h"

namespace velmar::tool {

/// A corner of an outline, in columns and rows of the grid, counted from 0.
struct OutlinePoint {
    float column;
    float row;
    bool sharp;  ///< at an edge of the grid or of its data, not on a line of the level
};

/// The last point joins the first. Outlines of areas run counter-clockwise where longitude and latitude rise
/// with columns and rows, those of their holes the other way.
using Outline = std::vector<OutlinePoint>;

/// Everything that lies above a level.
struct LevelArea {
    float level;
    std::vector<Outline> outlines;
};

/// Joins the areas of a shading in strips of one row, level by level, from the lowest up: what two strips
/// have in common is no outline. The shading is in columns and rows.
std::vector<LevelArea> joinStrips(const Shading& shading);

}  // namespace velmar::tool
