#include "shade/polygons.h"

#include <algorithm>

#include "base/messages.h"
#include "base/progress.h"

namespace velmar::shade {

using base::LonLat;
using grid::GridPlace;
using grid::GridPoint;

namespace {

LonLat inHostCoordinates(const GridPoint& point, const std::optional<GridPlace>& place) {
    return place ? place->degrees(point) : LonLat{point.column, point.row};
}

/// Prints the point array, x and y in turn, but only as many of its floats as there are points.
void printPoints(std::span<const LonLat> points) {
    if (!base::printsProgress()) return;
    for (std::size_t k = 0; k < points.size(); ++k) {
        const auto [x, y] = points[k / 2];
        base::progress(base::messages::polygonPoint, {points.size(), k, k % 2 == 0 ? x : y});
    }
    base::progress("\n");
}

}  // namespace

void appendShadePolygon(ShadePolygons& polygons, std::span<const GridPoint> outline,
                        const std::optional<GridPlace>& place, float level, int colour) {
    if (outline.size() < 3) return;
    const std::size_t first = polygons.points.size();
    polygons.runs.push_back({{first, outline.size()}, level, std::clamp(colour, 0, 99)});
    polygons.points.resize(first + outline.size());
    std::ranges::transform(outline, polygons.points.begin() + static_cast<std::ptrdiff_t>(first),
                           [&](const GridPoint& point) { return inHostCoordinates(point, place); });
    printPoints(polygons.pointsOf(polygons.runs.back()));
}

void printPolygons(const ShadePolygons& polygons) {
    for (const ShadePolygon& polygon : polygons.runs) printPoints(polygons.pointsOf(polygon));
}

}  // namespace velmar::shade
