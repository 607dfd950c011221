#pragma once

#include <functional>
#include <memory>
#include <string>

#include "chart/paper/paper.h"

namespace velmar::tool {

struct SurfaceRelease {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceRelease>;

/// Paints a page and returns it as a file of the format (png, svg or pdf). A Problem when the drawing library
/// gives up.
std::string renderPage(const std::string& format, PaperSize size, const std::function<void(cairo_t*)>& paint);

/// The same with several pages, counted from 0; more than one for pdf only.
std::string renderPages(const std::string& format, PaperSize size, std::size_t count,
                        const std::function<void(cairo_t*, std::size_t)>& paint);

}  // namespace velmar::tool
