#pragma once

#include <cstddef>
#include <cstdint>

#include "base/numbers.h"
#include "grid/grid.h"

namespace velmar::analysis {

/// The first and last columns and rows of an analysis, in degrees.
struct Bounds {
    float startLongitude;
    float endLongitude;
    float startLatitude;
    float endLatitude;
};

/// The same in whole degrees.
struct WholeBounds {
    int startLongitude;
    int endLongitude;
    int startLatitude;
    int endLatitude;
};

/// Columns and rows.
struct GridSize {
    int nx;
    int ny;
};

inline float extent(float start, float end) { return end - start; }
inline float extent(int start, int end) { return static_cast<float>(std::int64_t{end} - start); }

/// Where columns and rows lie that divide bounds evenly.
template <class AnyBounds>
grid::GridPlace placeOf(const GridSize& size, const AnyBounds& bounds) {
    const auto step = [](auto start, auto end, int lines) {
        return extent(start, end) / static_cast<float>(lines - 1);
    };
    return {static_cast<float>(bounds.startLongitude), static_cast<float>(bounds.startLatitude),
            step(bounds.startLongitude, bounds.endLongitude, size.nx),
            step(bounds.startLatitude, bounds.endLatitude, size.ny)};
}

/// How many columns or rows of this step there are from the start up to the end. Single precision, so that 70
/// to 140 by 0.1 gives 701.
inline int countBySteps(float start, float end, float step) {
    return base::truncateToInt((end - start) / step + 1.0F);
}

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
