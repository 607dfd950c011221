#include "triangles/edge.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmar::triangles {
namespace {

/// Places less than this north or south of a line are on it, degrees.
constexpr double onLine = 0.01;
/// Squared distance below which two places are the same.
constexpr double samePlace = 1e-6;

double square(double x) { return x * x; }

}  // namespace

EdgeLine::EdgeLine(PlanePoint a, PlanePoint b) {
    constexpr double least = 1e-6;
    double dx = b.longitude - a.longitude;
    if (std::fabs(dx) < least) dx = least;
    slope = (b.latitude - a.latitude) / dx;
    offset = a.latitude - slope * a.longitude;
}

LineSide sideOf(const EdgeLine& line, PlanePoint p) {
    const double north = line.northOf(p);
    if (north < -onLine) return LineSide::south;
    return north > onLine ? LineSide::north : LineSide::on;
}

bool reachesBeyond(const PlaneBox& extent, const EdgeLine& line, LineSide side) {
    const auto [west, south] = extent.lowest;
    const auto [east, north] = extent.highest;
    const double atWest = line.slope * west;
    const double atEast = line.slope * east;
    // Half the distance within which a place is on the line allows for rounding, while the terms are not too large.
    constexpr double least = onLine / 2;
    constexpr double largest = least * 1e14;
    if (!(std::max(std::fabs(atWest), std::fabs(atEast)) + std::fabs(line.offset) < largest)) return true;
    const bool reachesNorth = north - std::min(atWest, atEast) - line.offset > least;
    const bool reachesSouth = south - std::max(atWest, atEast) - line.offset < -least;
    return (reachesNorth && side != LineSide::north) || (reachesSouth && side != LineSide::south);
}

double viewOf(PlanePoint a, PlanePoint b, PlanePoint from) {
    const double toB = squaredDistance(from, b);
    const double toA = squaredDistance(from, a);
    if (!(toB >= samePlace && toA >= samePlace)) return -1;
    const double cosine = (toB + toA - squaredDistance(a, b)) / (2 * std::sqrt(toB) * std::sqrt(toA));
    return 1 - cosine;
}

double squaredReach(PlanePoint a, PlanePoint b, double view) {
    // Views are differences from 1 of squared distances that may be nearly the same: this is how wrong one may be.
    constexpr double rounding = 1e-10;
    const double cosine = 1 - (view - rounding);
    if (!(cosine < 1)) return std::numeric_limits<double>::infinity();
    // Places with the same view lie on a circle through both ends of the edge: the farthest one is the far side of the
    // circle, or the ends themselves.
    const double factor = cosine > 0 ? (1 + cosine) / std::sqrt(1 - square(cosine)) : 1;
    const double reach = std::sqrt(squaredDistance(a, b)) / 2 * factor;
    return square(reach * (1 + 1e-9) + 1e-9);
}

}  // namespace velmar::triangles
