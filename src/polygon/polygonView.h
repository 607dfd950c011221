#pragma once

#include <cstddef>

#include "grid/grid.h"

namespace velmar::polygon {

/// A view of a polygon: pairs x, y. The last point joins the first.
struct PolygonView {
    const float* coordinates;
    std::size_t count;

    grid::Point at(std::size_t k) const { return {coordinates[2 * k], coordinates[2 * k + 1]}; }
};

/// A rectangle with sides along the axes. The sides belong to it.
struct Rectangle {
    float xlo;
    float ylo;
    float xhi;
    float yhi;
};

}  // namespace velmar::polygon
