#pragma once

#include "chart/chartTexts.h"
#include "chart/paper/sheet.h"

namespace velmar::tool {

/// Height of the title above the map, and of the caption below its degrees.
inline constexpr double titleHeight = 66;
inline constexpr double captionHeight = 52;

void drawTitle(cairo_t* ink, const Sheet& sheet, const ChartTexts& texts);

/// The caption and, where needed, the key of the grey of missing data.
void drawCaption(cairo_t* ink, const Sheet& sheet, const ChartTexts& texts);

}  // namespace velmar::tool
