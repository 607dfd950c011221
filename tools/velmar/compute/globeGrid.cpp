#include "compute/globeGrid.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "base/threads.h"
#include "base/wideVectors.h"
#include "grid/refine.h"

namespace velmar::tool {
namespace {

/// The lattice of a grid that begins at a place, to its last column and row.
grid::Lattice latticeOf(const grid::GridPlace& place, const grid::GridView& grid) {
    return {.startLongitude = place.startLongitude,
            .endLongitude = place.startLongitude + (static_cast<float>(grid.nx) - 1.0F) * place.longitudeStep,
            .longitudeStep = place.longitudeStep,
            .startLatitude = place.startLatitude,
            .endLatitude = place.startLatitude + (static_cast<float>(grid.ny) - 1.0F) * place.latitudeStep,
            .latitudeStep = place.latitudeStep};
}

/// What the lines of a grid (columns or rows) bring to fewer ones: those nearer than the new spacing, the nearest most.
class Tents {
public:
    Tents(int lines, int fewer) : lines_(lines), spacing_(static_cast<double>(lines - 1) / (fewer - 1)) {}

    /// The first and last lines that bring something; they may lie outside the grid.
    int firstOf(int line) const { return static_cast<int>(std::floor(line * spacing_ - spacing_)) + 1; }
    int lastOf(int line) const { return static_cast<int>(std::ceil(line * spacing_ + spacing_)) - 1; }
    float weight(int line, int from) const {
        return static_cast<float>(1 - std::fabs(from - line * spacing_) / spacing_);
    }
    int lines() const { return lines_; }

private:
    int lines_;
    double spacing_;
};

/// Sums over rows, a value a column.
struct ColumnSums {
    std::vector<float> sums;
    std::vector<float> weights;  ///< of the values that are there
};

VELMAR_WIDE_VECTORS
void addRow(const float* values, std::size_t count, float weight, float* sums, float* weights) {
    for (std::size_t i = 0; i < count; ++i) {
        const float value = values[i];
        const bool isThere = (value != grid::missingInFiles) & (std::fabs(value) <= 3e38F);
        sums[i] += isThere ? weight * value : 0.0F;
        weights[i] += isThere ? weight : 0.0F;
    }
}

/// One row of the thinned grid.
void thinRow(const GlobeGrid& from, const Tents& columns, const Tents& rows, int row, ColumnSums& work,
             std::span<float> out) {
    std::ranges::fill(work.sums, 0.0F);
    std::ranges::fill(work.weights, 0.0F);
    float rowWeights = 0;
    for (int j = std::max(rows.firstOf(row), 0); j <= std::min(rows.lastOf(row), rows.lines() - 1); ++j) {
        const float weight = rows.weight(row, j);
        rowWeights += weight;
        addRow(from.grid.row(j), work.sums.size(), weight, work.sums.data(), work.weights.data());
    }
    const bool wraps = from.circlesGlobe();
    const int period = from.grid.nx - 1;
    for (std::size_t c = 0; c < out.size(); ++c) {
        const int column = static_cast<int>(c);
        float sum = 0;
        float weight = 0;
        float whole = 0;
        for (int i = columns.firstOf(column); i <= columns.lastOf(column); ++i) {
            if (!wraps && (i < 0 || i > period)) continue;
            const auto k = static_cast<std::size_t>(wraps ? (i + period) % period : i);
            const float w = columns.weight(column, i);
            sum += w * work.sums[k];
            weight += w * work.weights[k];
            whole += w * rowWeights;
        }
        out[c] = weight >= whole / 2 ? sum / weight : grid::missingInFiles;
    }
}

}  // namespace

bool GlobeGrid::circlesGlobe() const {
    constexpr double tolerance = 0.5;
    return std::fabs(std::fabs(lattice.endLongitude - lattice.startLongitude) - 360.0) < tolerance;
}

GlobeGrid onGlobe(const GridFile& file) {
    GlobeGrid result{.values = {.values = {}}, .grid = file.values, .lattice = {}};
    if (files::circlesGlobe(file.header.field)) {
        result.values = closedGrid(file.values);
        result.grid = result.values.view();
    }
    result.lattice = latticeOf(file.header.field.lattice.place(), result.grid);
    requireFinite(result.lattice);
    return result;
}

GlobeGrid tracedGrid(const GlobeGrid& grid) {
    const auto factors = grid::chooseFactors(grid.grid.nx, grid.grid.ny);
    GlobeGrid traced{.values = {.values = {}}, .grid = grid.grid, .lattice = grid.lattice};
    if (factors.x > 1 || factors.y > 1) {
        traced.values = grid::refine(grid.grid, grid::missingInFiles, factors);
        traced.grid = traced.values.view();
    }
    traced.lattice.longitudeStep /= static_cast<float>(factors.x);
    traced.lattice.latitudeStep /= static_cast<float>(factors.y);
    return traced;
}

GlobeGrid thinned(const GlobeGrid& from, int columns, int rows) {
    columns = std::min(std::max(columns, 2), from.grid.nx);
    rows = std::min(std::max(rows, 2), from.grid.ny);
    GlobeGrid result{.values = {std::vector<float>(grid::valueCount(columns, rows)), columns, rows},
                     .grid = {},
                     .lattice = from.lattice};
    result.grid = result.values.view();
    result.lattice.longitudeStep *= static_cast<float>(from.grid.nx - 1) / static_cast<float>(columns - 1);
    result.lattice.latitudeStep *= static_cast<float>(from.grid.ny - 1) / static_cast<float>(rows - 1);
    const Tents columnTents(from.grid.nx, columns);
    const Tents rowTents(from.grid.ny, rows);
    const double nanosecondsEach = 2.0 * static_cast<double>(from.grid.size()) / rows;
    base::shareWork(static_cast<std::size_t>(rows), nanosecondsEach,
                    [&](std::size_t first, std::size_t last) {
                        const auto width = static_cast<std::size_t>(from.grid.nx);
                        ColumnSums work{std::vector<float>(width), std::vector<float>(width)};
                        for (std::size_t j = first; j < last; ++j) {
                            const auto length = static_cast<std::size_t>(columns);
                            const auto out = std::span(result.values.values).subspan(j * length, length);
                            thinRow(from, columnTents, rowTents, static_cast<int>(j), work, out);
                        }
                    });
    return result;
}

}  // namespace velmar::tool
