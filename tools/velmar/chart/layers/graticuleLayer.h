#pragma once

#include "chart/paper/page.h"

namespace velmar::tool {

// Colours that can be seen on what lies below the lines.
inline constexpr Colour graticuleOnWhite{0.55, 0.55, 0.55};
inline constexpr Colour graticuleOnColours{0.35, 0.35, 0.35};
inline constexpr Colour graticuleOnGreys{1.0, 0.85, 0.2};

/// Meridians and parallels.
class GraticuleLayer : public Layer {
public:
    explicit GraticuleLayer(const Colour& colour) : colour_(colour) {}
    void draw(Page& page) const override;

private:
    Colour colour_;
};

/// The map's border and the degrees beside it.
void drawFrame(cairo_t* ink, const MapFrame& map);

/// Room that the degrees need beside and below the map.
inline constexpr double degreesWidth = 52;
inline constexpr double degreesHeight = 24;

}  // namespace velmar::tool
