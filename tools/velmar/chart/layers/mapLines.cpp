#include "chart/layers/mapLines.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmar::tool {
namespace {

constexpr double circle = 360;

struct MapPlace {
    double longitude;
    double latitude;
};

/// The points with as many circles added to each that neighbours are near to each other.
std::vector<MapPlace> joined(const GeoPoints& points) {
    constexpr double mostDegrees = 2 * circle;
    std::vector<MapPlace> line;
    line.reserve(points.size());
    for (std::size_t k = 0; k < points.size(); ++k) {
        const auto [longitude, latitude] = points[k];
        if (!(std::fabs(longitude) <= mostDegrees && std::fabs(latitude) <= 90)) continue;
        const double step = line.empty() ? 0 : longitude - line.back().longitude;
        line.push_back({longitude - circle * std::round(step / circle), latitude});
    }
    return line;
}

bool isOnDateLine(const MapPlace& place) {
    return std::fabs(std::remainder(place.longitude, circle)) == circle / 2;
}

Circles visibleCircles(const std::vector<MapPlace>& line, const GeoBox& bounds) {
    if (line.size() < 2) return {0, -1};
    const auto [south, north] = std::ranges::minmax(line, {}, &MapPlace::latitude);
    if (south.latitude > bounds.north || north.latitude < bounds.south) return {0, -1};
    const auto [west, east] = std::ranges::minmax(line, {}, &MapPlace::longitude);
    return circlesInto(bounds, west.longitude, east.longitude);
}

PaperPoint toPaper(const MapPlace& place, int circles, const MapFrame& map) {
    return map.toPaper(place.longitude + circle * circles, place.latitude);
}

PaperPieces piecesOf(const std::vector<MapPlace>& line, int circles, const MapFrame& map) {
    PaperPieces pieces(1);
    for (std::size_t k = 0; k < line.size(); ++k) {
        if (k > 0 && isOnDateLine(line[k - 1]) && isOnDateLine(line[k])) pieces.emplace_back();
        pieces.back().push_back(toPaper(line[k], circles, map));
    }
    return pieces;
}

/// Leads an outline that goes round the globe over its pole.
void closeRoundPole(std::vector<MapPlace>& outline) {
    if (outline.empty() || std::fabs(outline.back().longitude - outline.front().longitude) < circle / 2)
        return;
    double sum = 0;
    for (const MapPlace& place : outline) sum += place.latitude;
    const double pole = sum > 0 ? 90 : -90;
    const MapPlace first = outline.front();
    outline.push_back({outline.back().longitude, pole});
    outline.push_back({first.longitude, pole});
}

}  // namespace

std::vector<PaperPieces> linesOnPaper(const GeoPoints& points, const MapFrame& map) {
    const std::vector<MapPlace> line = joined(points);
    const auto [first, last] = visibleCircles(line, map.bounds);
    std::vector<PaperPieces> copies;
    for (int circles = first; circles <= last; ++circles) copies.push_back(piecesOf(line, circles, map));
    return copies;
}

std::vector<std::vector<PaperPoint>> areasOnPaper(const GeoPoints& points, const MapFrame& map) {
    std::vector<MapPlace> outline = joined(points);
    closeRoundPole(outline);
    const auto [first, last] = visibleCircles(outline, map.bounds);
    std::vector<std::vector<PaperPoint>> copies;
    for (int circles = first; circles <= last; ++circles) {
        std::vector<PaperPoint> area;
        area.reserve(outline.size());
        for (const MapPlace& place : outline) area.push_back(toPaper(place, circles, map));
        copies.push_back(std::move(area));
    }
    return copies;
}

}  // namespace velmar::tool
