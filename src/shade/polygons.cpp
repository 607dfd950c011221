#include "shade/polygons.h"

#include <algorithm>

#include "frame/messages.h"
#include "frame/progress.h"

namespace velmar::shade {

using frame::BlockWriter;
using frame::ResultBlock;

namespace {

/// The point array is x and y in turn; of its floats only as many are printed as there are points.
void printPoints(std::span<const Point> points) {
    for (std::size_t k = 0; k < points.size(); ++k) {
        const Point& point = points[k / 2];
        frame::progress(frame::messages::polygonPoint, {points.size(), k, k % 2 == 0 ? point.x : point.y});
    }
    frame::progress("\n");
}

}  // namespace

void freeShadePolygons(ShadePolygonList& list) {
    list.polygons.clear();
    list.points.clear();
}

void appendShadePolygon(ShadePolygonList& list, std::span<const Point> points, float level, int colour) {
    if (points.size() < 3) return;
    printPoints(points);
    list.polygons.push_back({level, std::clamp(colour, 0, 99), list.points.size(), points.size()});
    list.points.insert(list.points.end(), points.begin(), points.end());
}

ResultBlock buildShadeResult(ShadePolygonList& list, const frame::GridView& grid,
                             const frame::GridPlace& place) {
    if (list.polygons.empty()) return nullptr;
    const std::size_t elements = 12 + 3 * list.polygons.size() + 2 * list.points.size() + grid.size();
    ResultBlock block = frame::allocateBlock(elements);
    BlockWriter out(block);
    out.appendCount(elements);
    out.appendCount(list.polygons.size());
    for (const ShadePolygon& polygon : list.polygons) {
        out.appendCount(polygon.pointCount);
        out.append(polygon.level);
        out.appendCount(polygon.colour);
        for (const Point& point : list.pointsOf(polygon)) {
            out.append(point.x);
            out.append(point.y);
        }
    }
    frame::appendGrid(out, grid, place);
    out.append(0.0F);  // slack: the count has always been one more than what is laid out
    freeShadePolygons(list);
    return block;
}

}  // namespace velmar::shade
