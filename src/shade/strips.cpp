#include "shade/strips.h"

#include <algorithm>

#include "shade/starts.h"

namespace velmar::shade {

using grid::GridPlace;
using grid::GridView;

namespace {

/// Moves the stack of holes into the polygon list, the newest first. Whatever level a hole belongs to, it carries
/// the last one of the list: this is established behaviour.
void popHoles(HoleStack& stack, const ShadeLevels& levels, const GridPlace& place, HolePlace holePlace,
              ShadePolygonList& polygons) {
    if (holePlace == HolePlace::degrees) {
        for (Point& point : stack.points) point = place.degrees(point);
    }
    const std::span<const Point> points = stack.points;
    for (auto hole = stack.records.rbegin(); hole != stack.records.rend(); ++hole)
        appendShadePolygon(polygons, points.subspan(hole->firstPoint, hole->pointCount), levels.last(),
                           hole->colourBelow);
    stack.clear();
}

void markAbove(const grid::LevelIndex& index, const Strip& strip, float level, grid::BitPlane& above) {
    for (int j = strip.jmin; j <= strip.jmax; ++j)
        index.classifyRow(j, level, {above.row(j), above.wordsPerRow()});
}

bool traceLevel(const Strip& strip, const ShadeLevel& level, const GridPlace& place, TraceBuffers& buffers,
                ShadePolygonList& polygons) {
    markAbove(buffers.index, strip, level.level, buffers.above);
    buffers.sides.clearWalked(strip);
    RegionTracer tracer(strip, level, place, buffers, polygons);
    return traceFromStarts(strip, buffers, tracer);
}

bool traceStrip(const Strip& strip, const ShadeLevels& levels, const GridPlace& place, TraceBuffers& buffers,
                ShadePolygonList& polygons) {
    const grid::LevelIndex::Range range = buffers.index.rangeOfRows(strip.jmin, strip.jmax);
    const float lowest = std::min(range.lowest, 9.99e33F);
    const float highest = std::max(range.highest, -9.99e33F);
    buffers.sides.markUndefinedSides(buffers.index, strip);
    int colourBelow = 0;
    for (int k = 0; k < levels.countUpTo(highest); ++k) {
        const float level = levels.level(k);
        const int levelColour = levels.colour(k);
        const bool filled = k + 1 < levels.count() && lowest > levels.level(k + 1);
        if (!filled && highest < level) continue;
        // Without a point above it a level has no outline.
        const bool outlined = !filled && highest > level;
        if (outlined && !traceLevel(strip, {level, levelColour, colourBelow}, place, buffers, polygons))
            return false;
        colourBelow = levelColour;
    }
    return true;
}

}  // namespace

bool traceStrips(const ShadeRequest& request, const GridPlace& place, HolePlace holePlace,
                 TraceBuffers& buffers, ShadePolygonList& polygons) {
    const int lastRow = request.grid.ny - 1;
    const int advance = request.stripRows < 1 ? lastRow : std::min(request.stripRows, lastRow);
    for (int jmin = 0; jmin < lastRow; jmin += std::min(advance, lastRow - jmin)) {
        const Strip strip{jmin, jmin + std::min(advance, lastRow - jmin)};
        if (!traceStrip(strip, request.levels, place, buffers, polygons)) return false;
        popHoles(buffers.holeStack, request.levels, place, holePlace, polygons);
    }
    return true;
}

}  // namespace velmar::shade
