#include "analysis/area.h"

namespace velmar::analysis {

namespace {

Bounds boundsAround(const Extent& extent) {
    constexpr float margin = 1.0F;
    Bounds bounds{extent.west - margin, extent.east + margin, extent.south - margin, extent.north + margin};
    if (bounds.startLatitude < -90.0F) bounds.startLatitude = -90.0F;
    if (bounds.endLatitude > 90.0F) bounds.endLatitude = 90.0F;
    if (bounds.startLongitude < 0.0F) bounds.startLongitude = 0.0F;
    if (bounds.endLongitude > 360.0F) bounds.endLongitude = 360.0F;
    return bounds;
}

}  // namespace

void Extent::addLongitude(float longitude) {
    if (longitude > east) east = longitude;
    if (longitude < west) west = longitude;
}

void Extent::addLatitude(float latitude) {
    if (latitude > north) north = latitude;
    if (latitude < south) south = latitude;
}

AnalysisArea areaOf(const AreaRequest& request, const Extent& extent) {
    const Bounds bounds = request.fitted ? boundsAround(extent) : request.bounds;
    const int nx = countBySteps(bounds.startLongitude, bounds.endLongitude, request.longitudeStep);
    const int ny = countBySteps(bounds.startLatitude, bounds.endLatitude, request.latitudeStep);
    return {bounds, request.longitudeStep, request.latitudeStep, {nx, ny}};
}

}  // namespace velmar::analysis
