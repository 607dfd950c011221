#include "compute/prominence.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "base/threads.h"
#include "read/gridFile.h"

namespace velmar::tool {
namespace {

/// A sinking sea, from which islands rise at summits and merge where the sea falls to a pass between them.
///
/// Each point belongs to the summit that the steepest ways up lead to. Two islands meet at points that have neighbours
/// on the slopes of both, so that only those points are gone through from the highest to the lowest. Of equal points the
/// one with the lower number counts as the higher.
template <class Index>
class Islands {
public:
    Islands(const grid::GridView& grid, float sign, bool circlesGlobe)
        : grid_(grid), sign_(sign), circlesGlobe_(circlesGlobe), summits_(grid.size(), nowhere) {}

    std::vector<float> sink() {
        std::vector<float> result(grid_.size(), 0);
        findWaysUp();
        climb();
        std::vector<Pass> passes = findPasses();
        std::ranges::sort(passes, [&](const Pass& a, const Pass& b) { return isHigher(a.point, b.point); });
        for (const Pass& pass : passes) {
            Index higher = islandOf(summits_[pass.point]);
            Index lower = islandOf(pass.summit);
            if (higher == lower) continue;
            if (isHigher(lower, higher)) std::swap(higher, lower);
            result[lower] = height(lower) - height(pass.point);
            summits_[lower] = higher;
        }
        standOutFromAll(result);
        return result;
    }

private:
    static constexpr Index nowhere = std::numeric_limits<Index>::max();

    /// A point of one island beside one of another, which is higher.
    struct Pass {
        Index point;
        Index summit;  ///< of the other island
    };

    float height(Index point) const { return sign_ * grid_.values[point]; }
    bool isHigher(Index a, Index b) const {
        const float heightA = height(a);
        const float heightB = height(b);
        return heightA > heightB || (heightA == heightB && a < b);
    }
    std::size_t columns() const { return static_cast<std::size_t>(grid_.nx - (circlesGlobe_ ? 1 : 0)); }
    bool isLand(int column, int row) const {
        return static_cast<std::size_t>(column) < columns() && isPresent(grid_.at(column, row));
    }
    Index pointAt(int column, int row) const {
        return static_cast<Index>(row) * static_cast<Index>(grid_.nx) + static_cast<Index>(column);
    }

    /// Calls `visit` with each of the neighbours of a point that has a value.
    template <class Visit>
    void forNeighbours(int column, int row, Visit visit) const {
        const int period = grid_.nx - 1;
        for (int j = std::max(row - 1, 0); j <= std::min(row + 1, grid_.ny - 1); ++j) {
            for (int i = column - 1; i <= column + 1; ++i) {
                const int around = circlesGlobe_ ? (i + period) % period : i;
                if (around < 0 || around >= grid_.nx || (i == column && j == row)) continue;
                if (isLand(around, j)) visit(pointAt(around, j));
            }
        }
    }

    /// Calls `work` with columns and rows of points that have values.
    template <class Work>
    void forLandOfRows(std::size_t firstRow, std::size_t lastRow, Work work) const {
        for (std::size_t row = firstRow; row < lastRow; ++row)
            for (std::size_t column = 0; column < columns(); ++column)
                if (isLand(static_cast<int>(column), static_cast<int>(row)))
                    work(static_cast<int>(column), static_cast<int>(row));
    }

    /// The highest neighbour of each point, or the point itself where that is higher.
    void findWaysUp() {
        constexpr double nanosecondsPerPoint = 15;
        base::shareWork(static_cast<std::size_t>(grid_.ny), nanosecondsPerPoint * grid_.nx,
                        [&](std::size_t first, std::size_t last) {
                            forLandOfRows(first, last, [&](int column, int row) {
                                Index highest = pointAt(column, row);
                                forNeighbours(column, row, [&](Index neighbour) {
                                    if (isHigher(neighbour, highest)) highest = neighbour;
                                });
                                summits_[pointAt(column, row)] = highest;
                            });
                        });
    }

    /// Follows the ways up to the summits.
    void climb() {
        std::vector<Index> way;
        for (Index point = 0; point < summits_.size(); ++point) {
            if (summits_[point] == nowhere) continue;
            Index top = point;
            for (; summits_[top] != top; top = summits_[top]) way.push_back(top);
            for (const Index passed : way) summits_[passed] = top;
            way.clear();
        }
    }

    std::vector<Pass> findPasses() const {
        constexpr double nanosecondsPerPoint = 15;
        const auto runs = base::collectWork(
            static_cast<std::size_t>(grid_.ny), nanosecondsPerPoint * grid_.nx,
            [&](std::size_t first, std::size_t last) {
                std::vector<Pass> passes;
                forLandOfRows(first, last, [&](int column, int row) {
                    const Index point = pointAt(column, row);
                    Index known = summits_[point];
                    forNeighbours(column, row, [&](Index neighbour) {
                        const Index summit = summits_[neighbour];
                        if (summit == known || summit == summits_[point] || !isHigher(neighbour, point))
                            return;
                        passes.push_back({point, summit});
                        known = summit;
                    });
                });
                return passes;
            });
        std::vector<Pass> passes;
        for (const auto& [first, run] : runs) passes.insert(passes.end(), run.begin(), run.end());
        return passes;
    }

    /// The summit of the island that a summit belongs to by now.
    Index islandOf(Index summit) {
        while (summits_[summit] != summit) {
            summits_[summit] = summits_[summits_[summit]];
            summit = summits_[summit];
        }
        return summit;
    }

    /// The highest point of all stands out from the lowest.
    void standOutFromAll(std::vector<float>& result) const {
        Index highest = nowhere;
        Index lowest = nowhere;
        forLandOfRows(0, static_cast<std::size_t>(grid_.ny), [&](int column, int row) {
            const Index point = pointAt(column, row);
            if (highest == nowhere || isHigher(point, highest)) highest = point;
            if (lowest == nowhere || isHigher(lowest, point)) lowest = point;
        });
        if (highest != nowhere) result[highest] = height(highest) - height(lowest);
    }

    const grid::GridView& grid_;
    const float sign_;
    const bool circlesGlobe_;
    /// Of each point: the next one on the way up, then its summit; of a summit: that of the island it has merged with.
    std::vector<Index> summits_;
};

}  // namespace

std::vector<float> prominences(const grid::GridView& grid, float sign, bool circlesGlobe) {
    if (grid.size() < std::numeric_limits<std::uint32_t>::max())
        return Islands<std::uint32_t>(grid, sign, circlesGlobe).sink();
    return Islands<std::size_t>(grid, sign, circlesGlobe).sink();
}

}  // namespace velmar::tool
