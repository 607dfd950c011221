#pragma once

#include <span>
#include <vector>

#include "triangles/segments.h"

namespace velmar::triangles {

/// Lines, their points in one array.
struct Lines {
    struct Line {
        std::size_t points;
        float level;
    };

    std::vector<Line> lines;
    std::vector<grid::Point> points;
};

/// Joins the pieces of a level to lines: open chains first, each from an endpoint that nothing matches, then what is
/// left, closed lines. Endpoints that differ by less than 0.005 degrees in x and in y match. The next piece of a line
/// is the first unused one of the list with an endpoint at the line's last point; where both its endpoints are there,
/// it is joined by its first.
void joinSegments(std::vector<Segment>& segments, float level, Lines& lines);

}  // namespace velmar::triangles
