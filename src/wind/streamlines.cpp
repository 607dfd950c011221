#include "wind/streamlines.h"

#include <algorithm>
#include <bit>
#include <new>
#include <optional>

#include "base/messages.h"
#include "base/progress.h"

namespace velmar::wind {
namespace {

constexpr int usualDensity = 5;

/// How many cells make a grid length: about 200 along the longer side at the usual density.
int cellsPerLength(const grid::GridView& grid, int density) {
    constexpr int cellsPerSide = 200;
    const long long wanted =
        cellsPerSide / std::max(grid.nx, grid.ny) + (static_cast<long long>(density) - usualDensity);
    return static_cast<int>(std::clamp(wanted, 1LL, 10LL));
}

/// The distance from a line, in cells, within which no other line starts.
int freeCells(int density) {
    if (density == usualDensity) return 2;
    return density < usualDensity ? 3 : 1;
}

std::optional<FlagGrid> allocateFlags(const grid::GridView& grid, int scale) try {
    return FlagGrid(std::int64_t{grid.nx} * scale, std::int64_t{grid.ny} * scale);
} catch (const std::bad_alloc&) {
    base::progress(base::messages::noMemoryForStreamlines);
    return std::nullopt;
}

/// Starts lines in the lower left corners of the cells of a row that have no flagged cell near them. Which ones
/// these are is worked out again only when a line has flagged some.
void seedRow(std::int64_t row, int reach, int scale, const FlagGrid& flags, Tracer& tracer) {
    const auto place = [scale](std::int64_t cell) {
        return static_cast<float>(cell) / static_cast<float>(scale);
    };
    const std::int64_t chunk = FlagGrid::chunk(reach);
    for (std::int64_t first = 0; first < flags.columns(); first += chunk) {
        const std::int64_t count = std::min(chunk, flags.columns() - first);
        std::uint64_t free = ~flags.nearFlags(first, row, reach) & FlagGrid::firstBits(count);
        while (free != 0) {
            const int next = std::countr_zero(free);
            free &= free - 1;
            if (tracer.trace({place(first + next), place(row)})) free &= ~flags.nearFlags(first, row, reach);
        }
    }
}

}  // namespace

std::optional<Drawing> drawStreamlines(const WindField& wind, const LineColours& colours,
                                       const grid::Lattice& lattice, int density, Drawing drawing) {
    if (wind.u.size() == 0) return std::nullopt;
    const int scale = cellsPerLength(wind.u, density);
    std::optional<FlagGrid> flags = allocateFlags(wind.u, scale);
    if (!flags) return std::nullopt;
    Tracer tracer(wind, colours, lattice, scale, *flags, drawing);
    for (std::int64_t row = 0; row < flags->rows(); ++row)
        seedRow(row, freeCells(density), scale, *flags, tracer);
    return drawing;
}

}  // namespace velmar::wind
