#pragma once

#include <span>

#include "contour/centers.h"
#include "contour/lines.h"
#include "contour/refine.h"
#include "frame/block.h"
#include "frame/grid.h"

namespace velmar::contour {

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
                                const frame::GridView& grid, const frame::GridPlace& place,
                                const ContourHints& hints);

/// Packs centres into the result of findCenters.
frame::ResultBlock packCenters(std::span<const Center> centers, const frame::GridPlace& place);

}  // namespace velmar::contour
