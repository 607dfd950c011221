#pragma once

#include "chart/paper/page.h"
#include "compute/triangles.h"

namespace velmar::tool {

/// The edges of a network of triangles.
class TriangleLayer : public Layer {
public:
    explicit TriangleLayer(const StationContours& contours) : contours_(contours) {}
    void draw(Page& page) const override;

private:
    const StationContours& contours_;
};

}  // namespace velmar::tool
