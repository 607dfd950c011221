#include "shade/polygons.h"

#include <algorithm>

#include "base/messages.h"
#include "base/progress.h"

namespace velmar::shade {

namespace {

/// Prints the point array, x and y in turn, but only as many of its floats as there are points.
void printPoints(std::span<const Point> points) {
    for (std::size_t k = 0; k < points.size(); ++k) {
        const Point& point = points[k / 2];
        base::progress(base::messages::polygonPoint, {points.size(), k, k % 2 == 0 ? point.x : point.y});
    }
    base::progress("\n");
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

}  // namespace velmar::shade
