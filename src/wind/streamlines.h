#pragma once

#include <optional>

#include "grid/grid.h"
#include "wind/drawing.h"
#include "wind/lineColours.h"
#include "wind/tracer.h"

namespace velmar::wind {

/// Draws evenly spaced streamlines: every cell of a fine grid, row after row, starts a line when no line has
/// passed near it. Nullopt for an empty field, or when there is no memory for the cells, which is reported on standard
/// output.
///
///   lattice  where the wind lies
///   density  5 is usual; larger values give more lines
///   drawing  receives what is drawn
std::optional<Drawing> drawStreamlines(const WindField& wind, const LineColours& colours,
                                       const grid::Lattice& lattice, int density, Drawing drawing);

}  // namespace velmar::wind
