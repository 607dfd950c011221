#pragma once

#include <span>

#include "contour/centers.h"
#include "contour/lines.h"
#include "contour/refine.h"
#include "frame/block.h"
#include "frame/grid.h"

namespace velmar::contour {

/// Where a grid's first column and row lie and how far apart columns and rows are, in degrees.
struct GridPlace {
    float x0;
    float y0;
    float dx;
    float dy;
};

/// Drawing parameters that travel with contour lines.
struct ContourHints {
    float boldValue;
    float start;
    float end;
    float interval;
};

/// Packs lines and their grid into the result of the contour exports. Positions on the traced grid become
/// degrees.
frame::ResultBlock packContours(const LineList& lines, const RefinementFactors& factors,
                                const frame::GridView& grid, const GridPlace& place,
                                const ContourHints& hints);

/// Packs centres into the result of findCenters.
frame::ResultBlock packCenters(std::span<const Center> centers, const GridPlace& place);

}  // namespace velmar::contour
