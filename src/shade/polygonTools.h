#pragma once

#include <array>
#include <cstddef>

#include "frame/grid.h"

namespace velmar::shade {

/// A polygon somebody else owns: pairs x, y. The last point joins the first.
struct PolygonView {
    const float* coordinates;
    std::size_t count;

    frame::Point at(std::size_t k) const { return {coordinates[2 * k], coordinates[2 * k + 1]}; }
};

/// A rectangle with sides along the axes. The sides belong to it.
struct Rectangle {
    float xlo;
    float ylo;
    float xhi;
    float yhi;
};

/// What the polygon tools keep between calls. Lives as long as the process.
struct PolygonToolsState {
    /// Number of points that the last clipping by a single edge left.
    int lastClipCount = 0;

    /// The filled outline of the last small polygon, pairs x, y. Its caller reads it until the next call.
    std::array<float, 40> smallOutline{};
};

PolygonToolsState& polygonTools();

}  // namespace velmar::shade
