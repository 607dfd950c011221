// What becomes of an outline that has closed.
#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

#include "base/messages.h"
#include "base/numbers.h"
#include "base/progress.h"
#include "shade/trace.h"

namespace velmar::shade {

using base::progress;
using base::truncateToInt;
namespace messages = base::messages;

bool RegionTracer::finish() {
    removeDuplicatePoints();
    std::vector<Point>& xyBuffer = buffers_.xyBuffer;
    if (xyBuffer.size() < 4) return true;
    // What touches a boundary counts as high whatever lies inside.
    if (!touchedBoundary_ && !isHighRegion()) return pushHole();
    for (Point& point : xyBuffer) point = place_.degrees(point);
    appendShadePolygon(polygons_, xyBuffer, level_.level, level_.levelColour);
    return true;
}

void RegionTracer::removeDuplicatePoints() {
    std::vector<Point>& xyBuffer = buffers_.xyBuffer;
    xyBuffer.erase(std::unique(xyBuffer.begin(), xyBuffer.end()), xyBuffer.end());
}

/// Looks at the grid point to the right of the leftmost crossing of a row: it lies inside the outline. Where
/// that crossing is itself a grid point equal to the level, the point after it may not.
bool RegionTracer::isHighRegion() const {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    Point leftmost{infinity, 1.0F};
    for (const Point& point : buffers_.xyBuffer) {
        if (point.x < leftmost.x && point.y == std::trunc(point.y)) leftmost = point;
    }
    const int column = std::clamp(truncateToInt(leftmost.x), 0, grid_.nx - 1);
    const int row = std::clamp(truncateToInt(leftmost.y) - 1, 0, grid_.ny - 1);
    return grid_.at(column, row) > level_.level;
}

bool RegionTracer::pushHole() try {
    const std::vector<Point>& xyBuffer = buffers_.xyBuffer;
    HoleStack& stack = buffers_.holeStack;
    const std::size_t firstPoint = stack.points.size();
    stack.points.insert(stack.points.end(), xyBuffer.begin(), xyBuffer.end());
    stack.records.push_back({firstPoint, xyBuffer.size(), level_.colourBelow});
    if (stack.records.size() < HoleStack::limit) return true;
    progress(messages::tooManyHoles);
    return false;
} catch (const std::bad_alloc&) {
    progress(messages::noHoleBuffer);
    return false;
}

}  // namespace velmar::shade
