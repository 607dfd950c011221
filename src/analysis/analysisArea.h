#pragma once

#include <cstddef>

#include "analysis/area.h"
#include "grid/grid.h"

namespace velmar::analysis {

/// How far stations reach, in degrees.
struct Extent {
    float west = 999.0F;
    float east = -999.0F;
    float south = 999.0F;
    float north = -999.0F;

    void addLongitude(float longitude);
    void addLatitude(float latitude);
};

/// The area that a host asks for.
struct AreaRequest {
    bool fitted;  ///< the bounds are those of the stations, with a margin
    Bounds bounds;
    float longitudeStep;
    float latitudeStep;
};

/// The grid of an analysis: its first column and row lie at the start bounds.
struct AnalysisArea {
    Bounds bounds;
    float longitudeStep;
    float latitudeStep;
    GridSize size;

    std::size_t pointCount() const { return grid::valueCount(size.nx, size.ny); }
    grid::GridPlace place() const {
        return {bounds.startLongitude, bounds.startLatitude, longitudeStep, latitudeStep};
    }
    grid::Lattice lattice() const {
        return {bounds.startLongitude, bounds.endLongitude, longitudeStep,
                bounds.startLatitude,  bounds.endLatitude,  latitudeStep};
    }
};

/// The area of a request for stations that reach so far. Fitted bounds lie a degree outside the stations, but
/// within -90 to 90 and 0 to 360: of stations at western, negative longitudes only the margin may be left.
AnalysisArea areaOf(const AreaRequest& request, const Extent& extent);

}  // namespace velmar::analysis
