#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "formats/boxIndex.h"
#include "frame/grid.h"
#include "frame/scanner.h"

namespace velmar::formats {

/// A named boundary: points of the table it is in.
struct Region {
    std::size_t name;        ///< where the name begins among the names
    std::size_t firstPoint;  ///< where its points begin among the coordinates, counted in points
    std::size_t points;
    frame::Point reference;  ///< the two numbers in front of the name, without a meaning here
    Box bounds;
    std::unique_ptr<BoxIndex> edges;  ///< of its edges by latitude; none where there are few
};

/// The regions of a file, in its order.
struct RegionTable {
    std::vector<Region> regions;
    std::vector<char> names;         ///< each with a zero at its end
    std::vector<float> coordinates;  ///< longitude and latitude in turn, degrees
    BoxIndex index;                  ///< of the bounds

    const char* nameOf(const Region& region) const { return names.data() + region.name; }
    const float* pointsOf(const Region& region) const { return coordinates.data() + 2 * region.firstPoint; }
};

/// How the reading of regions has ended.
enum class RegionsRead { complete, pointMissing };

/// Reads the head of a region file; says whether that is one.
bool readRegionHead(frame::TextScanner& in);

/// Reads regions until a head of one cannot be read, and builds the indices. A region that lacks points has those
/// that are there, but no bounds, and is the last.
RegionsRead readRegions(frame::TextScanner& in, RegionTable& table);

/// The first region whose boundary has a point inside; null when none has. By the crossings with a line from
/// longitude 0 to the point or, when there is none, from there to longitude 360: their number is odd. Both
/// numbers are printed. A boundary is not closed: its last point should repeat its first.
const Region* findRegion(const RegionTable& table, float longitude, float latitude);

}  // namespace velmar::formats
