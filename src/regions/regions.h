#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "base/records.h"
#include "grid/grid.h"
#include "regions/boxIndex.h"

namespace velmar::regions {

/// A named boundary: points of the table it is in.
struct Region {
    std::size_t name;        ///< where the name begins among the names
    std::size_t firstPoint;  ///< where its points begin among the coordinates, counted in points
    std::size_t points;
    Box bounds;                       ///< empty where points are missing
    std::unique_ptr<BoxIndex> edges;  ///< of its edges by latitude; null where there are few
};

/// Regions, in the order of their file, and what finds the one that holds a place.
struct RegionTable {
    explicit RegionTable(base::NamedOutlines outlines);

    std::vector<Region> regions;
    std::vector<char> names;         ///< each with a zero at its end
    std::vector<float> coordinates;  ///< longitude and latitude in turn, degrees
    BoxIndex index;                  ///< of the bounds

    const char* nameOf(const Region& region) const { return names.data() + region.name; }
    const float* pointsOf(const Region& region) const { return coordinates.data() + 2 * region.firstPoint; }
};

/// The first region whose boundary has a point inside; null when there is no such region. A point is inside when the
/// boundary crosses the line from longitude 0 to the point an odd number of times or, when it does not cross it at all,
/// the line from the point to longitude 360. Both numbers are printed. A boundary is not closed: its last point
/// should repeat its first.
const Region* findRegion(const RegionTable& table, float longitude, float latitude);

}  // namespace velmar::regions
