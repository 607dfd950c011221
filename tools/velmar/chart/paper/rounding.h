#pragma once

#include <vector>

#include "chart/paper/paper.h"

namespace velmar::tool {

/// Leaves out detail inside a line: of two points closer together than this only their middle is kept. Where
/// a line passes a grid point it has two crossings a hair apart, which could not be rounded.
std::vector<PaperPoint> withoutDetail(const std::vector<PaperPoint>& line, double detail);

/// Adds a line with its corners rounded to the drawing path, which stands at its first point: from the middle
/// of one piece to the middle of the next runs a parabola that keeps inside the corner, so that neighbouring
/// lines still do not cross. Which way a line is drawn makes no difference.
void traceRounded(cairo_t* ink, const std::vector<PaperPoint>& line);

}  // namespace velmar::tool
