#pragma once

#include <optional>

#include "chart/paper/mapFrame.h"
#include "chart/paper/page.h"

namespace velmar::tool {

/// A sheet of paper and the map on it.
struct Sheet {
    PaperSize size;
    MapFrame map;
};

/// Lays out a chart with room for its title, its caption and, to the right of the map, a bar of colours of
/// this width. Without a size of the user's the sheet is cut to the map.
Sheet layOut(const Bounds& bounds, const std::optional<PaperSize>& size, double barWidth);

/// Draws the layers, each after all have taken their places, and the map's border.
void drawMap(Page& page, const Layers& layers);

}  // namespace velmar::tool
