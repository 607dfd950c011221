#pragma once

#include "chart/mapFrame.h"
#include "contours.h"

namespace velmar::tool {

/// Height of the title above the map, and of the caption below its degrees.
inline constexpr double titleHeight = 66;
inline constexpr double captionHeight = 52;

/// The file's title, its times and its level.
void drawTitle(cairo_t* ink, const MapFrame& map, PaperSize sheet, const GridFile& file);

/// What the lines stand for, and the extremes of the area shown.
void drawCaption(cairo_t* ink, const MapFrame& map, PaperSize sheet, const GridFile& file,
                 const ContourSet& set);

}  // namespace velmar::tool
