#include "compute/centers.h"

#include <algorithm>
#include <cmath>

#include "compute/prominence.h"
#include "contour/centers.h"

namespace velmar::tool {
namespace {

/// The grid with a column more on either side where it circles the globe, so that a centre on the seam has
/// neighbours.
struct WrappedGrid {
    std::vector<float> values;
    grid::GridView view;
    int extraColumns;
};

WrappedGrid wrap(const ContourSet& set) {
    const grid::GridView& grid = set.grid;
    const int extra = set.circlesGlobe() ? 1 : 0;
    WrappedGrid wrapped{.values = {}, .view = {nullptr, grid.nx + 2 * extra, grid.ny}, .extraColumns = extra};
    wrapped.values.reserve(wrapped.view.size());
    for (int row = 0; row < grid.ny; ++row) {
        if (extra > 0) wrapped.values.push_back(grid.at(grid.nx - 2, row));
        wrapped.values.insert(wrapped.values.end(), grid.row(row), grid.row(row) + grid.nx);
        if (extra > 0) wrapped.values.push_back(grid.at(1, row));
    }
    wrapped.view.values = wrapped.values.data();
    return wrapped;
}

/// Whether an inner grid point and its eight neighbours have data.
bool isComplete(const grid::GridView& grid, int column, int row) {
    for (int j = row - 1; j <= row + 1; ++j)
        for (int i = column - 1; i <= column + 1; ++i)
            if (!isPresent(grid.at(i, j))) return false;
    return true;
}

}  // namespace

std::vector<ProminentCenter> prominentCenters(const ContourSet& set, float leastProminence) {
    const WrappedGrid wrapped = wrap(set);
    const std::vector<float> highs = prominences(set.grid, 1, set.circlesGlobe());
    const std::vector<float> lows = prominences(set.grid, -1, set.circlesGlobe());
    const grid::Lattice& lattice = set.lattice;
    std::vector<ProminentCenter> centers;
    for (const contour::Center& found : contour::findGridCenters(wrapped.view, grid::missingInFiles)) {
        const int column = found.column - wrapped.extraColumns;
        const int row = found.row;
        if (!isComplete(wrapped.view, found.column, row)) continue;
        const auto point = static_cast<std::size_t>(row) * static_cast<std::size_t>(set.grid.nx) +
                           static_cast<std::size_t>(column);
        const float prominence = found.high ? highs[point] : lows[point];
        if (prominence < leastProminence || prominence <= 0) continue;
        centers.push_back({found.high, found.value,
                           lattice.startLongitude + static_cast<double>(column) * lattice.longitudeStep,
                           lattice.startLatitude + static_cast<double>(row) * lattice.latitudeStep,
                           prominence});
    }
    std::ranges::stable_sort(centers, std::ranges::greater{}, &ProminentCenter::prominence);
    return centers;
}

}  // namespace velmar::tool
