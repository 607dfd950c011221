#pragma once

#include <vector>

#include "compute/contours.h"

namespace velmar::tool {

/// The values of which a set has lines, in rising order.
std::vector<float> levelsOf(const ContourSet& set);

/// The levels that are numbers, in rising order, each once.
std::vector<float> ascending(std::vector<float> levels);

/// Smallest distance of neighbouring levels; 0 when there are not two.
float spacingOf(const std::vector<float>& levels);

/// The step of levels that are all whole steps apart; 0 when they are not, or fewer than three.
float evenStep(const std::vector<float>& levels);

/// A value with as many digits as are of use beside levels of this spacing: two more than the spacing's first.
/// All of them when there is no spacing.
float roundedFor(float spacing, float value);

/// Whether a level is the bold one, also when it comes from a sum of intervals and is off by a rounding.
bool isBoldLevel(float level, float boldValue, float spacing);

}  // namespace velmar::tool
