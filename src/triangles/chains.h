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

/// Joins the pieces of a level to lines: first those that have an end to themselves, from there, then what is left,
/// closed lines. Ends that differ by less than 0.005 degrees in x and in y are the same. The next piece of a line is
/// the first unused one of the list with an end at the line's last point; where both its ends are there, the line
/// comes in by its first end.
void joinSegments(std::vector<Segment>& segments, float level, Lines& lines);

}  // namespace velmar::triangles
