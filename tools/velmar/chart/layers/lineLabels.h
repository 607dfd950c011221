#pragma once

#include <string>
#include <vector>

#include "chart/paper/page.h"
#include "chart/paper/paperLine.h"

namespace velmar::tool {

/// A value written into a gap of its line.
struct LineLabel {
    std::size_t line;  ///< its index in the list of lines
    std::string text;
    PaperPoint center;
    double angle;
    Stretch gap;
};

/// What a label looks like, and the lines that get theirs first.
struct LabelStyle {
    double size;
    std::vector<bool> isBold;  ///< per line
};

/// Finds places for the values on the lines: where a line runs straight and level, away from other lines, and
/// never over what has been taken, which they take in turn. Labels of a line come in the order of their gaps.
std::vector<LineLabel> placeLabels(Page& page, const std::vector<PaperLine>& lines, const LabelStyle& style);

}  // namespace velmar::tool
