#include "contour/centers.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <map>

#include "base/numbers.h"
#include "base/threads.h"
#include "grid/extremes.h"

namespace velmar::contour {

namespace {

using grid::GridView;

enum class CenterKind : unsigned char { none, low, high };

/// A sum of differences along one direction and how many were added.
struct Slope {
    float sum = 0.0F;
    int steps = 0;
};

/// Adds the differences at the indices from `from` towards `stop` while they have the sign of the centre. Where
/// a difference of the other sign ends the walk, the sum becomes a mean (not a number when that difference is the
/// first); a walk that reaches the edge of the grid keeps its sum.
template <class Difference>
Slope walkSlope(bool high, int from, int stop, int step, Difference difference) {
    Slope slope;
    for (int k = from; k != stop; k += step) {
        const float change = difference(k);
        if (!(high ? change > 0.0F : change < 0.0F)) {
            slope.sum /= static_cast<float>(slope.steps);
            break;
        }
        slope.sum += change;
        ++slope.steps;
    }
    return slope;
}

Center measure(const GridView& grid, int column, int row, bool high) {
    const float* const line = grid.row(row);
    const auto toPreviousColumn = [&](int k) { return line[k] - line[k - 1]; };
    const auto toNextColumn = [&](int k) { return line[k] - line[k + 1]; };
    const auto toPreviousRow = [&](int k) { return grid.at(column, k) - grid.at(column, k - 1); };
    const Slope west = walkSlope(high, column, 0, -1, toPreviousColumn);
    const Slope east = walkSlope(high, column, grid.nx - 1, 1, toNextColumn);
    const Slope south = walkSlope(high, row, 0, -1, toPreviousRow);
    // The walk to the north takes the same differences as the one to the south, so that it mostly ends with
    // the second. This is established behaviour: strengths are measured this way.
    const Slope north = walkSlope(high, row, grid.ny - 1, 1, toPreviousRow);
    Center center{};
    center.column = column;
    center.row = row;
    center.value = line[column];
    center.high = high;
    center.strength = west.sum + east.sum + south.sum + north.sum;
    center.stepCount = west.steps + east.steps + south.steps + north.steps;
    return center;
}

/// Marks the centres of one inner row. Returns whether there are any.
bool classifyRow(const GridView& grid, int row, std::vector<CenterKind>& kinds) {
    const float* const south = grid.row(row - 1);
    const float* const here = grid.row(row);
    const float* const north = grid.row(row + 1);
    unsigned char any = 0;
    for (int i = 1; i + 1 < grid.nx; ++i) {
        const float p = here[i];
        // A low is not compared with its south-west neighbour, and the one to the east may be equal. This is
        // established behaviour: the centres on existing charts depend on it.
        const bool low = (p <= here[i + 1]) & (p < here[i - 1]) & (p < south[i]) & (p < north[i]) &
                         (p < north[i + 1]) & (p < north[i - 1]) & (p < south[i + 1]);
        const bool high = (p >= here[i + 1]) & (p > here[i - 1]) & (p > south[i]) & (p > north[i]) &
                          (p > north[i + 1]) & (p > south[i - 1]) & (p > south[i + 1]) & (p > north[i - 1]);
        const auto kind = static_cast<unsigned char>(low + 2 * high);
        kinds[static_cast<std::size_t>(i)] = static_cast<CenterKind>(kind);
        any |= kind;
    }
    return any != 0;
}

/// The centres of runs of rows, by the first row of each.
using CentersOfRuns = std::map<std::size_t, std::vector<Center>>;

/// Reorders centres from row by row to column by column; within a column they stay in the order of the rows.
std::vector<Center> orderedByColumn(const CentersOfRuns& runs, int nx) {
    std::vector<std::size_t> next(static_cast<std::size_t>(nx) + 1);
    for (const auto& [first, centers] : runs)
        for (const Center& center : centers) ++next[static_cast<std::size_t>(center.column) + 1];
    for (std::size_t column = 1; column < next.size(); ++column) next[column] += next[column - 1];
    std::vector<Center> ordered(next.back());
    for (const auto& [first, centers] : runs)
        for (const Center& center : centers)
            ordered[next[static_cast<std::size_t>(center.column)]++] = center;
    return ordered;
}

void assignClasses(std::vector<Center>& centers) {
    float largest = -std::numeric_limits<float>::infinity();
    for (const Center& center : centers) largest = center.strength > largest ? center.strength : largest;
    const float step = std::max(largest / 10.0F, 5.0F);
    for (Center& center : centers) center.strengthClass = base::truncateToInt(center.strength / step);
}

/// The centres of inner rows, row by row.
std::vector<Center> centersOfRows(const GridView& grid, int firstRow, int lastRow, float range) {
    std::vector<Center> centers;
    std::vector<CenterKind> kinds(static_cast<std::size_t>(grid.nx), CenterKind::none);
    for (int row = firstRow; row < lastRow; ++row) {
        if (!classifyRow(grid, row, kinds)) continue;
        for (int column = 1; column + 1 < grid.nx; ++column) {
            const CenterKind kind = kinds[static_cast<std::size_t>(column)];
            if (kind == CenterKind::none) continue;
            Center& center = centers.emplace_back(measure(grid, column, row, kind == CenterKind::high));
            center.normalisedStrength = center.strength / range;
        }
    }
    return centers;
}

}  // namespace

std::vector<Center> findGridCenters(const GridView& grid, float missing) {
    if (grid.nx < 3 || grid.ny < 3) return {};
    const auto [largest, smallest] = grid::extremesOf({grid.values, grid.size()}, missing);
    const float range = largest - smallest;
    const auto innerRows = static_cast<std::size_t>(grid.ny) - 2;
    const auto runs = base::collectWork(innerRows, 1.2 * grid.nx, [&](std::size_t first, std::size_t last) {
        return centersOfRows(grid, static_cast<int>(first) + 1, static_cast<int>(last) + 1, range);
    });
    std::vector<Center> centers = orderedByColumn(runs, grid.nx);
    assignClasses(centers);
    return centers;
}

}  // namespace velmar::contour
