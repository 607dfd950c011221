#pragma once

#include <optional>

#include "chart/paper/paper.h"

namespace velmar::tool {

/// Draws the place of a station as the WMO has it plotted: a circle filled by the eighths of the sky that clouds
/// cover (0 to 8), crossed out for 9, a sky that cannot be seen. Where that is not known it is a dot.
void drawStationSymbol(cairo_t* ink, PaperPoint place, std::optional<int> cloudEighths);

/// Half the width of what is drawn.
double stationSymbolRadius(std::optional<int> cloudEighths);

}  // namespace velmar::tool
