#include "chart/paper/lettering.h"

#include <pango/pangocairo.h>

#include <memory>

namespace velmar::tool {
namespace {

struct LayoutRelease {
    void operator()(PangoLayout* layout) const { g_object_unref(layout); }
};
struct FontRelease {
    void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
};
using Layout = std::unique_ptr<PangoLayout, LayoutRelease>;

Layout layOut(cairo_t* ink, const std::string& text, const Lettering& lettering, double width) {
    const std::unique_ptr<PangoFontDescription, FontRelease> font(pango_font_description_from_string("sans"));
    pango_font_description_set_absolute_size(font.get(), lettering.size * PANGO_SCALE);
    if (lettering.bold) pango_font_description_set_weight(font.get(), PANGO_WEIGHT_BOLD);
    Layout layout(pango_cairo_create_layout(ink));
    pango_context_set_language(pango_layout_get_context(layout.get()), pango_language_from_string("zh-cn"));
    pango_layout_set_font_description(layout.get(), font.get());
    pango_layout_set_single_paragraph_mode(layout.get(), true);
    pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
    if (width > 0) {
        pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_END);
        pango_layout_set_width(layout.get(), static_cast<int>(width * PANGO_SCALE));
    }
    return layout;
}

PaperSize sizeOf(PangoLayout* layout) {
    PangoRectangle logical;
    pango_layout_get_extents(layout, nullptr, &logical);
    return {static_cast<double>(logical.width) / PANGO_SCALE,
            static_cast<double>(logical.height) / PANGO_SCALE};
}

}  // namespace

PaperSize measureText(cairo_t* ink, const std::string& text, const Lettering& lettering) {
    return sizeOf(layOut(ink, text, lettering, 0).get());
}

void drawText(cairo_t* ink, const std::string& text, PaperPoint place, Anchor anchor,
              const Lettering& lettering, double angle, double width) {
    const Layout layout = layOut(ink, text, lettering, width);
    const PaperSize size = sizeOf(layout.get());
    const double before = anchor == Anchor::left ? 0 : anchor == Anchor::center ? size.width / 2 : size.width;
    cairo_save(ink);
    cairo_translate(ink, place.x, place.y);
    cairo_rotate(ink, angle);
    cairo_move_to(ink, -before, -size.height / 2);
    if (lettering.halo > 0) {
        pango_cairo_layout_path(ink, layout.get());
        setColour(ink, white);
        cairo_set_line_width(ink, 2 * lettering.halo);
        cairo_set_line_join(ink, CAIRO_LINE_JOIN_ROUND);
        cairo_stroke(ink);
        cairo_move_to(ink, -before, -size.height / 2);
    }
    setColour(ink, lettering.colour);
    pango_cairo_show_layout(ink, layout.get());
    cairo_restore(ink);
}

}  // namespace velmar::tool
