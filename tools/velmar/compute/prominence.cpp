#include "compute/prominence.h"

#include <algorithm>

#include "read/gridFile.h"

namespace velmar::tool {
namespace {

/// The land that has risen from a sinking sea: islands that merge when the sea falls to the pass between
/// them.
class Islands {
public:
    Islands(const grid::GridView& grid, float sign, bool circlesGlobe)
        : grid_(grid),
          sign_(sign),
          circlesGlobe_(circlesGlobe),
          parents_(grid.size(), sea),
          prominences_(grid.size(), 0) {}

    std::vector<float> sink() {
        const std::vector<std::size_t> order = highestFirst();
        for (const std::size_t point : order) rise(point);
        if (!order.empty()) prominences_[order.front()] = height(order.front()) - height(order.back());
        return std::move(prominences_);
    }

private:
    static constexpr std::size_t sea = static_cast<std::size_t>(-1);

    float height(std::size_t point) const { return sign_ * grid_.values[point]; }

    std::vector<std::size_t> highestFirst() const {
        std::vector<std::size_t> order;
        const auto columns = static_cast<std::size_t>(grid_.nx);
        for (std::size_t k = 0; k < grid_.size(); ++k) {
            const bool repeated = circlesGlobe_ && k % columns == columns - 1;
            if (!repeated && isPresent(grid_.values[k])) order.push_back(k);
        }
        std::ranges::stable_sort(order, std::ranges::greater{}, [&](std::size_t k) { return height(k); });
        return order;
    }

    /// The summit of the island that a point lies on.
    std::size_t summitOf(std::size_t point) {
        while (parents_[point] != point) {
            parents_[point] = parents_[parents_[point]];
            point = parents_[point];
        }
        return point;
    }

    void rise(std::size_t point) {
        parents_[point] = point;
        const int column = static_cast<int>(point % static_cast<std::size_t>(grid_.nx));
        const int row = static_cast<int>(point / static_cast<std::size_t>(grid_.nx));
        for (int j = row - 1; j <= row + 1; ++j)
            for (int i = column - 1; i <= column + 1; ++i) meet(point, i, j);
    }

    /// Joins the island of a new point with that of a neighbour, if that has risen.
    void meet(std::size_t point, int column, int row) {
        const int period = grid_.nx - 1;
        if (circlesGlobe_) column = (column + period) % period;
        if (column < 0 || column >= grid_.nx || row < 0 || row >= grid_.ny) return;
        const auto neighbour = static_cast<std::size_t>(row) * static_cast<std::size_t>(grid_.nx) +
                               static_cast<std::size_t>(column);
        if (parents_[neighbour] == sea) return;
        std::size_t higher = summitOf(neighbour);
        std::size_t lower = summitOf(point);
        if (higher == lower) return;
        if (isLower(higher, lower)) std::swap(higher, lower);
        prominences_[lower] = height(lower) - height(point);
        parents_[lower] = higher;
    }

    bool isLower(std::size_t a, std::size_t b) const {
        return height(a) < height(b) || (height(a) == height(b) && a > b);
    }

    const grid::GridView& grid_;
    float sign_;
    bool circlesGlobe_;
    std::vector<std::size_t> parents_;
    std::vector<float> prominences_;
};

}  // namespace

std::vector<float> prominences(const grid::GridView& grid, float sign, bool circlesGlobe) {
    return Islands(grid, sign, circlesGlobe).sink();
}

}  // namespace velmar::tool
