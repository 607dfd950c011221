#pragma once

#include "wind/lineColours.h"
#include "wind/state.h"
#include "wind/tracer.h"

namespace velmar::wind {

/// Draws evenly spaced streamlines: every cell of a fine grid, row after row, starts a line when no line has
/// passed near it. Returns the block that streamAnalyse describes; null for an empty field, or, told on standard
/// output, when there is no memory for the cells.
///
///   density  5 is usual; larger values give more lines
frame::ResultBlock drawStreamlines(const Wind& wind, const LineColours& colours, int density,
                                   WindState& state);

}  // namespace velmar::wind
