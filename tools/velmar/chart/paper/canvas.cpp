#include "chart/paper/canvas.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <fmt/format.h>

#include <cmath>

#include "common/text.h"

namespace velmar::tool {
namespace {

struct InkRelease {
    void operator()(cairo_t* ink) const { cairo_destroy(ink); }
};

cairo_status_t append(void* file, const unsigned char* bytes, unsigned int count) {
    try {
        static_cast<std::string*>(file)->append(reinterpret_cast<const char*>(bytes), count);
    } catch (const std::bad_alloc&) {
        return CAIRO_STATUS_NO_MEMORY;
    }
    return CAIRO_STATUS_SUCCESS;
}

void require(cairo_status_t status) {
    if (status != CAIRO_STATUS_SUCCESS)
        throw Problem(fmt::format("the chart cannot be drawn: {}", cairo_status_to_string(status)));
}

Surface makeSurface(const std::string& format, PaperSize size, std::string& file) {
    if (format == "svg")
        return Surface(cairo_svg_surface_create_for_stream(append, &file, size.width, size.height));
    if (format == "pdf")
        return Surface(cairo_pdf_surface_create_for_stream(append, &file, size.width, size.height));
    return Surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(size.width),
                                              static_cast<int>(size.height)));
}

/// Takes the numbers off the names of the page and the picture in an svg, which has no more than one of each. The
/// drawing library counts them from the start of the program, so that a chart would depend on those drawn before it.
void dropNumbers(std::string& svg) {
    for (const std::string_view mark : {"id=\"surface", "id=\"image", "href=\"#image"})
        for (std::size_t at = svg.find(mark); at != std::string::npos; at = svg.find(mark, at)) {
            at += mark.size();
            svg.erase(at, svg.find_first_not_of("0123456789", at) - at);
        }
}

}  // namespace

std::string renderPage(const std::string& format, PaperSize size,
                       const std::function<void(cairo_t*)>& paint) {
    return renderPages(format, size, 1, [&](cairo_t* ink, std::size_t) { paint(ink); });
}

std::string renderPages(const std::string& format, PaperSize size, std::size_t count,
                        const std::function<void(cairo_t*, std::size_t)>& paint) {
    std::string file;
    const Surface surface = makeSurface(format, size, file);
    const std::unique_ptr<cairo_t, InkRelease> ink(cairo_create(surface.get()));
    for (std::size_t page = 0; page < count; ++page) {
        if (page > 0) cairo_show_page(ink.get());
        setColour(ink.get(), white);
        cairo_paint(ink.get());
        paint(ink.get(), page);
    }
    require(cairo_status(ink.get()));
    if (format == "png") require(cairo_surface_write_to_png_stream(surface.get(), append, &file));
    cairo_surface_finish(surface.get());
    require(cairo_surface_status(surface.get()));
    if (format == "svg") dropNumbers(file);
    return file;
}

}  // namespace velmar::tool
