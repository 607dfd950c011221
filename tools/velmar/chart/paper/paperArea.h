#pragma once

#include <vector>

#include "chart/paper/mapFrame.h"
#include "chart/paper/paper.h"
#include "shade/outlines.h"

namespace velmar::tool {

/// A corner of an area on paper.
struct AreaCorner {
    PaperPoint place;
    bool sharp;
};

/// The part of an area that lies in a box. Its outline may run to and fro along the border of the box, where
/// it encloses nothing. New corners are sharp.
std::vector<AreaCorner> clipped(std::vector<AreaCorner> area, const PaperBox& box);

/// Adds what can be seen of an outline to the drawing path, as often as it can be seen, rounded as lines are,
/// but for its sharp corners.
void traceOutline(cairo_t* ink, const MapFrame& map, std::span<const shade::OutlinePoint> outline,
                  const grid::Lattice& lattice);

}  // namespace velmar::tool
