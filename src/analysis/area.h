#pragma once

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

}  // namespace velmar::analysis
