#pragma once

#include <string>

#include "chart/paper/paper.h"

namespace velmar::tool {

struct Lettering {
    double size;  ///< of the letters, in paper units
    bool bold = false;
    Colour colour = black;
    double halo = 0;  ///< width of a white seam around the letters
};

enum class Anchor { left, center, right };

PaperSize measureText(cairo_t* ink, const std::string& text, const Lettering& lettering);

/// Writes one line of UTF-8 text. The place is the middle of its left end, its centre or the middle of its
/// right end; the angle turns it about the place (radians, clockwise). Texts longer than the width are cut
/// short with an ellipsis; 0 is any width.
void drawText(cairo_t* ink, const std::string& text, PaperPoint place, Anchor anchor,
              const Lettering& lettering, double angle = 0, double width = 0);

}  // namespace velmar::tool
