#pragma once

#include "chart/page.h"

namespace velmar::tool {

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
