#pragma once

#include <vector>

#include "chart/paper/paper.h"

namespace velmar::tool {

/// A colour for each band between levels, from the one below the lowest level to the one above the highest.
/// Levels on both sides of zero get cold and warm colours that meet there, as many steps of colour to a band
/// on one side as on the other; all others get colours from light to dark.
std::vector<Colour> bandColours(const std::vector<float>& levels);

/// A colour for each of so many bands from weak to strong, for lines: all are dark enough to be seen on white.
std::vector<Colour> lineColours(std::size_t bands);

}  // namespace velmar::tool
