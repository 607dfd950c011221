#include "chart/paper/mapFrame.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "common/text.h"

namespace velmar::tool {
namespace {

/// Width of the map divided by its height. Areas that are all width or all height are stretched to stay
/// readable.
double aspect(const GeoBox& bounds) {
    const double width = bounds.east - bounds.west;
    const double height = bounds.north - bounds.south;
    const bool small = width <= 180 && height <= 90;
    const double middle = (bounds.south + bounds.north) / 2 * std::numbers::pi / 180;
    const double shrink = small ? std::max(std::cos(middle), 0.2) : 1;
    return std::clamp(width * shrink / height, 0.5, 3.0);
}

}  // namespace

GeoBox boundsOf(const grid::Lattice& lattice) {
    const auto [west, east] = std::minmax<double>({lattice.startLongitude, lattice.endLongitude});
    const auto [south, north] = std::minmax<double>({lattice.startLatitude, lattice.endLatitude});
    const GeoBox bounds{west, std::min(east, west + 360), std::max(south, -90.0), std::min(north, 90.0)};
    constexpr double mostDegrees = 361;
    if (std::fabs(west) > mostDegrees || east - west > mostDegrees)
        throw Problem(fmt::format("its longitudes, {} to {}, are not on the globe", plainNumber(west),
                                  plainNumber(east)));
    constexpr double mostLatitude = 95;  // a row beyond the pole is no mistake
    if (south < -mostLatitude || north > mostLatitude)
        throw Problem(fmt::format("its latitudes, {} to {}, are not on the globe", plainNumber(south),
                                  plainNumber(north)));
    if (!(bounds.east > bounds.west) || !(bounds.north > bounds.south))
        throw Problem("it covers no area: it has one row or column only");
    return bounds;
}

GeoBox boundsOf(const ByteImageFile& image) {
    const double across = std::fabs(image.lattice.longitudeStep) / 2;
    const double up = std::fabs(image.lattice.latitudeStep) / 2;
    const auto [west, east, south, north] = boundsOf(image.lattice);
    const double start = image.circlesGlobe() ? west : west - across;
    const double end = image.circlesGlobe() ? west + 360 : std::min(east + across, start + 360);
    return {start, end, std::max(south - up, -90.0), std::min(north + up, 90.0)};
}

MapFrame fitMap(const GeoBox& bounds, const PaperBox& room) {
    const double ratio = aspect(bounds);
    const double width = std::min(room.width, room.height * ratio);
    const double height = width / ratio;
    return {bounds,
            {.left = std::round(room.left + (room.width - width) / 2),
             .top = std::round(room.top + (room.height - height) / 2),
             .width = std::round(width),
             .height = std::round(height)}};
}

Circles circlesInto(const GeoBox& bounds, double west, double east) {
    return {static_cast<int>(std::ceil((bounds.west - east) / 360)),
            static_cast<int>(std::floor((bounds.east - west) / 360))};
}

}  // namespace velmar::tool
