#pragma once

#include <functional>
#include <optional>
#include <string>

#include "chart/chartTexts.h"
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
Sheet layOut(const GeoBox& bounds, const std::optional<PaperSize>& size, double barWidth);

/// Draws the layers, each after all have taken their places, and the map's border.
void drawMap(Page& page, const Layers& layers);

void drawTitle(cairo_t* ink, const Sheet& sheet, const ChartTexts& texts);

/// The caption and, where needed, the key of the grey of missing data.
void drawCaption(cairo_t* ink, const Sheet& sheet, const ChartTexts& texts);

/// Draws what charts of all kinds have in common: layers on a map, a bar of colours beside it, and texts round it,
/// with the remarks of the layers in the caption. Returns the chart as a file of the format.
std::string drawSheet(const Sheet& sheet, const Layers& layers, ChartTexts texts,
                      const std::function<void(cairo_t*)>& drawBar, const std::string& format);

}  // namespace velmar::tool
