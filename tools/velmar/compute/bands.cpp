#include "compute/bands.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "base/threads.h"

namespace velmar::tool {
namespace {

using shade::AreaOutlines;
using shade::OutlinePoint;

double twiceArea(const BandRing& ring) {
    double sum = 0;
    const OutlinePoint& origin = ring[0];
    for (std::size_t k = 2; k < ring.size(); ++k) {
        const OutlinePoint& a = ring[k - 1];
        const OutlinePoint& b = ring[k];
        sum += (double{a.column} - origin.column) * (double{b.row} - origin.row) -
               (double{b.column} - origin.column) * (double{a.row} - origin.row);
    }
    return sum;
}

/// A place in columns and rows.
struct GridSpot {
    double column;
    double row;
};

/// A place on the left of a hole, from where what lies to the left of it belongs to the band: the middle of the side
/// that leads upward through the leftmost point. Holes run clockwise. Points themselves may touch other rings.
GridSpot leftSideOf(const BandRing& hole) {
    const auto leftmost = std::ranges::min_element(
        hole, {}, [](const OutlinePoint& point) { return std::pair(point.column, point.row); });
    const auto k = static_cast<std::size_t>(leftmost - hole.begin());
    const OutlinePoint& before = hole[(k + hole.size() - 1) % hole.size()];
    const OutlinePoint& behind = hole[(k + 1) % hole.size()];
    const OutlinePoint& other = behind.row - leftmost->row > leftmost->row - before.row ? behind : before;
    return {0.5 * (double{leftmost->column} + other.column), 0.5 * (double{leftmost->row} + other.row)};
}

/// The sides of rings by rows of cells, to find what lies to the left of a place. No side is wider than a cell but those
/// along rows, which are left out.
class SidesByRow {
public:
    explicit SidesByRow(const std::vector<BandRing>& rings) {
        for (std::size_t ring = 0; ring < rings.size(); ++ring) {
            const BandRing& points = rings[ring];
            for (std::size_t k = 0; k < points.size(); ++k)
                add(points[k], points[(k + 1) % points.size()], ring);
        }
        std::ranges::sort(sides_, {}, &RowSide::place);
    }

    /// The ring, not the own one, of the nearest side to the left of a spot.
    std::optional<std::size_t> leftOf(const GridSpot& spot, std::size_t ownRing) const {
        const int row = static_cast<int>(std::floor(spot.row));
        auto side = std::ranges::upper_bound(sides_, std::pair(row, static_cast<float>(spot.column)), {},
                                             &RowSide::place);
        std::optional<std::size_t> nearest;
        double distance = std::numeric_limits<double>::infinity();
        while (side != sides_.begin()) {
            --side;
            if (side->place.first != row || spot.column - side->place.second > distance + 1) break;
            if (side->ring == ownRing || !side->spans(spot.row)) continue;
            const double here = spot.column - side->columnAt(spot.row);
            if (here >= distance || here < 0) continue;
            distance = here;
            nearest = side->ring;
        }
        return nearest;
    }

private:
    struct RowSide {
        std::pair<int, float> place;  ///< row of cells, and the lesser column
        OutlinePoint lower;
        OutlinePoint upper;
        std::size_t ring;

        bool spans(double row) const { return lower.row <= row && row < upper.row; }
        double columnAt(double row) const {
            return lower.column + (row - lower.row) / (double{upper.row} - lower.row) *
                                      (double{upper.column} - lower.column);
        }
    };

    void add(OutlinePoint lower, OutlinePoint upper, std::size_t ring) {
        if (upper.row < lower.row) std::swap(lower, upper);
        const float column = std::min(lower.column, upper.column);
        for (int row = static_cast<int>(std::floor(lower.row)); static_cast<float>(row) < upper.row; ++row)
            sides_.push_back({{row, column}, lower, upper, ring});
    }

    std::vector<RowSide> sides_;
};

/// Puts rings together that are outlines of areas and of holes in them. To the left of a hole lies the outline that it
/// belongs to, or another hole of that.
std::vector<BandPolygon> polygonsOf(const AreaOutlines& outlines) {
    std::vector<BandRing> rings;
    for (const base::PointRun& ring : outlines.runs) rings.push_back(outlines.pointsOf(ring));
    constexpr std::size_t hole = std::numeric_limits<std::size_t>::max();
    std::vector<BandPolygon> polygons;
    std::vector<std::size_t> polygonOf(rings.size(), hole);
    for (std::size_t k = 0; k < rings.size(); ++k) {
        if (twiceArea(rings[k]) < 0) continue;
        polygonOf[k] = polygons.size();
        polygons.push_back({rings[k]});
    }
    if (polygons.size() == rings.size()) return polygons;
    const SidesByRow sides(rings);
    std::vector<std::size_t> way;
    for (std::size_t k = 0; k < rings.size(); ++k) {
        way.clear();
        std::optional<std::size_t> ring = k;
        while (ring && polygonOf[*ring] == hole && way.size() < rings.size()) {
            way.push_back(*ring);
            ring = sides.leftOf(leftSideOf(rings[*ring]), *ring);
        }
        if (!ring || polygonOf[*ring] == hole) continue;
        for (const std::size_t passed : way) {
            polygonOf[passed] = polygonOf[*ring];
            polygons[polygonOf[*ring]].push_back(rings[passed]);
        }
    }
    return polygons;
}

/// The bounds of the bands between levels, below the lowest and above the highest of them.
std::vector<shade::ValueBand> boundsOfBands(const std::vector<float>& levels) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    std::vector<shade::ValueBand> bounds{{-infinity, infinity}};
    for (const float level : levels) {
        bounds.back().upper = level;
        bounds.push_back({level, infinity});
    }
    return bounds;
}

}  // namespace

BandSet bandsOf(const grid::GridView& grid, const std::vector<float>& levels) {
    const std::vector<shade::ValueBand> bounds = boundsOfBands(levels);
    BandSet set{shade::outlineBands(grid, grid::missingInFiles, bounds), std::vector<Band>(bounds.size())};
    constexpr double nanosecondsEach = 1e6;
    base::shareWork(bounds.size(), nanosecondsEach, [&](std::size_t first, std::size_t last) {
        for (std::size_t k = first; k < last; ++k) {
            Band& band = set.bands[k];
            if (k > 0) band.lower = bounds[k].lower;
            if (k < levels.size()) band.upper = bounds[k].upper;
            band.polygons = polygonsOf(set.outlines[k]);
        }
    });
    return set;
}

}  // namespace velmar::tool
