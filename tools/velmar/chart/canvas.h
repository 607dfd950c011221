#pragma once

#include <functional>
#include <string>

#include "chart/paper.h"

namespace velmar::tool {

/// Paints a page and returns it as a file of the format (png, svg or pdf). A Problem when the drawing library
/// gives up.
std::string renderPage(const std::string& format, PaperSize size, const std::function<void(cairo_t*)>& paint);

}  // namespace velmar::tool
