#pragma once

#include <cstddef>
#include <cstdint>

#include "base/numbers.h"
#include "base/points.h"
#include "grid/grid.h"

namespace velmar::analysis {

/// The bounds of an analysis in whole degrees.
struct WholeLonLatBox {
    int west;
    int east;
    int south;
    int north;
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
    return {static_cast<float>(bounds.west), static_cast<float>(bounds.south),
            step(bounds.west, bounds.east, size.nx), step(bounds.south, bounds.north, size.ny)};
}

/// How many columns or rows of this step there are from the start up to the end. Single precision, so that 70
/// to 140 by 0.1 gives 701.
inline int countBySteps(float start, float end, float step) {
    return base::truncateToInt((end - start) / step + 1.0F);
}

/// The area that a host asks for.
struct AreaRequest {
    bool fitted;  ///< the bounds are those of the stations, with a margin
    base::LonLatBox bounds;
    float longitudeStep;
    float latitudeStep;
};

/// The grid of an analysis: its first column and row lie at the western and the southern bound.
struct AnalysisArea {
    base::LonLatBox bounds;
    float longitudeStep;
    float latitudeStep;
    GridSize size;

    std::size_t pointCount() const { return grid::valueCount(size.nx, size.ny); }
    grid::GridPlace place() const { return {bounds.west, bounds.south, longitudeStep, latitudeStep}; }
    grid::Lattice lattice() const {
        return {bounds.west, bounds.east, longitudeStep, bounds.south, bounds.north, latitudeStep};
    }
};

/// The area of a request for stations that reach so far. Fitted bounds lie a degree outside the stations, but
/// within -90 to 90 and 0 to 360: of stations at western, negative longitudes only the margin may be left.
AnalysisArea areaOf(const AreaRequest& request, const base::LonLatBox& stations);

}  // namespace velmar::analysis
