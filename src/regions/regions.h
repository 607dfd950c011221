#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "base/records.h"
#include "regions/boxIndex.h"

namespace velmar::regions {

/// A named boundary.
struct Region : base::PointRun {
    std::size_t name;                 ///< where the name begins among the names
    base::LonLatBox bounds;           ///< empty where points are missing
    std::unique_ptr<BoxIndex> edges;  ///< of its edges by latitude; null where there are few
};

/// Regions, in the order of their file, and what finds the one that holds a place.
struct RegionTable : base::PointRuns<Region, base::LonLat> {
    explicit RegionTable(base::NamedOutlines outlines);

    std::vector<char> names;  ///< each with a zero at its end
    BoxIndex index;           ///< of the bounds

    const char* nameOf(const Region& region) const { return names.data() + region.name; }
};

/// The first region whose boundary has a point inside; null when there is no such region. A point is inside when the
/// boundary crosses the line from longitude 0 to the point an odd number of times or, when it does not cross it at all,
/// the line from the point to longitude 360. Both numbers are printed. A boundary is not closed: its last point
/// should repeat its first.
const Region* findRegion(const RegionTable& table, base::LonLat place);

}  // namespace velmar::regions
