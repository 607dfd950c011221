#include "analysis/area.h"

namespace velmar::analysis {

using base::LonLatBox;

namespace {

LonLatBox boundsAround(const LonLatBox& stations) {
    constexpr float margin = 1.0F;
    LonLatBox bounds{stations.west - margin, stations.east + margin, stations.south - margin,
                     stations.north + margin};
    if (bounds.south < -90.0F) bounds.south = -90.0F;
    if (bounds.north > 90.0F) bounds.north = 90.0F;
    if (bounds.west < 0.0F) bounds.west = 0.0F;
    if (bounds.east > 360.0F) bounds.east = 360.0F;
    return bounds;
}

}  // namespace

AnalysisArea areaOf(const AreaRequest& request, const LonLatBox& stations) {
    const LonLatBox bounds = request.fitted ? boundsAround(stations) : request.bounds;
    const int nx = countBySteps(bounds.west, bounds.east, request.longitudeStep);
    const int ny = countBySteps(bounds.south, bounds.north, request.latitudeStep);
    return {bounds, request.longitudeStep, request.latitudeStep, {nx, ny}};
}

}  // namespace velmar::analysis
