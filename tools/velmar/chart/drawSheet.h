#pragma once

#include <functional>
#include <string>

#include "chart/chartTexts.h"
#include "chart/paper/sheet.h"

namespace velmar::tool {

/// Draws what charts of all kinds have in common: layers on a map, a bar of colours beside it, and texts round it,
/// with the remarks of the layers in the caption. Returns the chart as a file of the format.
std::string drawSheet(const Sheet& sheet, const Layers& layers, ChartTexts texts,
                      const std::function<void(cairo_t*)>& drawBar, const std::string& format);

}  // namespace velmar::tool
