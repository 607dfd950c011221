#include "compute/centers.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/threads.h"
#include "compute/prominence.h"
#include "contour/centers.h"

namespace velmar::tool {
namespace {

/// The last column but one, the seam and the second column of a grid that circles the globe: a centre on the seam has
/// neighbours there.
grid::Grid seamOf(const grid::GridView& grid) {
    grid::Grid seam{{}, 3, grid.ny};
    for (int row = 0; row < grid.ny; ++row)
        seam.values.insert(seam.values.end(), {grid.at(grid.nx - 2, row), grid.at(0, row), grid.at(1, row)});
    return seam;
}

/// Whether an inner grid point and its eight neighbours have data.
bool isComplete(const grid::GridView& grid, int column, int row) {
    for (int j = row - 1; j <= row + 1; ++j)
        for (int i = column - 1; i <= column + 1; ++i)
            if (!isPresent(grid.at(i, j))) return false;
    return true;
}

/// How far highs or lows stand out, by blocks of points: of each block only its extreme point can. A way from point to
/// point leads over the extremes of the blocks on it, so that with larger blocks passes count as too high, or too low,
/// by what they differ from the points beside them.
class BlockProminences {
public:
    BlockProminences(const GlobeGrid& grid, float sign, int blockSize)
        : size_(blockSize), period_(grid.grid.nx - (grid.circlesGlobe() ? 1 : 0)) {
        const int columns = blockOf(period_ - 1) + (grid.circlesGlobe() ? 2 : 1);
        extremes_ = {{}, columns, blockOf(grid.grid.ny - 1) + 1};
        extremes_.values.resize(extremes_.view().size(), grid::missingInFiles);
        for (int row = 0; row < grid.grid.ny; ++row) addRow(grid.grid, row, sign);
        prominences_ = prominences(extremes_.view(), sign, grid.circlesGlobe());
    }

    float of(int column, int row, float value) const {
        const std::size_t block = index(blockOf(column % period_), blockOf(row));
        return extremes_.values[block] == value ? prominences_[block] : 0;
    }

private:
    int blockOf(int line) const { return line / size_; }
    std::size_t index(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(extremes_.nx) +
               static_cast<std::size_t>(column);
    }

    void addRow(const grid::GridView& grid, int row, float sign) {
        float* const blocks = extremes_.values.data() + index(0, blockOf(row));
        for (int column = 0; column < period_; ++column) {
            const float value = grid.at(column, row);
            float& extreme = blocks[blockOf(column)];
            if (!isPresent(value)) continue;
            if (extreme == grid::missingInFiles || sign * value > sign * extreme) extreme = value;
        }
        if (extremes_.nx > blockOf(period_ - 1) + 1) blocks[extremes_.nx - 1] = blocks[0];
    }

    const int size_;
    const int period_;  ///< columns, the repeated one left out
    grid::Grid extremes_;
    std::vector<float> prominences_;
};

/// The highs and lows of a grid.
struct Prominences {
    std::optional<BlockProminences> high;
    std::optional<BlockProminences> low;
};

/// Adds the centres of a grid or of a part of it, whose columns begin at one of the whole.
void addCenters(const GlobeGrid& whole, const grid::GridView& part, int firstColumn,
                const Prominences& prominences, float leastProminence,
                std::vector<ProminentCenter>& centers) {
    const grid::Lattice& lattice = whole.lattice;
    for (const contour::Center& found : contour::findGridCenters(part, grid::missingInFiles)) {
        const int column = found.column + firstColumn;
        const auto& heights = found.high ? prominences.high : prominences.low;
        const float prominence = heights->of(column, found.row, found.value);
        if (prominence < leastProminence || prominence <= 0 || !isComplete(part, found.column, found.row))
            continue;
        centers.push_back({found.high, found.value,
                           lattice.startLongitude + static_cast<double>(column) * lattice.longitudeStep,
                           lattice.startLatitude + static_cast<double>(found.row) * lattice.latitudeStep,
                           prominence});
    }
}

}  // namespace

std::vector<ProminentCenter> prominentCenters(const GlobeGrid& grid, float leastProminence, int blockSize) {
    Prominences heights;
    const double nanosecondsEach = 100.0 * static_cast<double>(grid.grid.size()) / (blockSize * blockSize);
    base::shareWork(2, nanosecondsEach, [&](std::size_t first, std::size_t last) {
        for (std::size_t k = first; k < last; ++k)
            (k == 0 ? heights.high : heights.low).emplace(grid, k == 0 ? 1.0F : -1.0F, blockSize);
    });
    std::vector<ProminentCenter> centers;
    if (grid.circlesGlobe())
        addCenters(grid, seamOf(grid.grid).view(), -1, heights, leastProminence, centers);
    addCenters(grid, grid.grid, 0, heights, leastProminence, centers);
    std::ranges::stable_sort(centers, std::ranges::greater{}, &ProminentCenter::prominence);
    return centers;
}

}  // namespace velmar::tool
