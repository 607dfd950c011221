#pragma once

#include <vector>

#include "chart/paper/mapFrame.h"

namespace velmar::tool {

// Bars of colours that stand to the right of a map, and the room that they need there.

/// A bar of the bands between levels, from the one below the lowest level to the one above the highest, which
/// end in points because they have no end. The levels stand at the boundaries, as many as there is room for.
void drawBandBar(cairo_t* ink, const MapFrame& map, const std::vector<float>& levels,
                 const std::vector<Colour>& colours);
double bandBarWidth(const std::vector<float>& levels);

/// A bar of the greys of byte values.
void drawGreyBar(cairo_t* ink, const MapFrame& map);
double greyBarWidth();

}  // namespace velmar::tool
