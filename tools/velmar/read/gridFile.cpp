#include "read/gridFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

#include "base/scanner.h"
#include "base/threads.h"
#include "common/text.h"
#include "files/fieldValues.h"

namespace velmar::tool {
namespace {

/// Which columns, or rows, lie in an area.
template <class IsInside>
std::vector<char> linesInside(int lines, const IsInside& isInside) {
    std::vector<char> inside;
    inside.reserve(static_cast<std::size_t>(std::max(lines, 0)));
    for (int line = 0; line < lines; ++line) inside.push_back(isInside(line) ? 1 : 0);
    return inside;
}

double longitudeOf(const grid::Lattice& lattice, int column) {
    return lattice.startLongitude + static_cast<double>(column) * lattice.longitudeStep;
}
double latitudeOf(const grid::Lattice& lattice, int row) {
    return lattice.startLatitude + static_cast<double>(row) * lattice.latitudeStep;
}

/// Looks at the values of some rows; extremes before them count first.
void addRow(const grid::GridView& grid, const grid::Lattice& lattice, const std::vector<char>& columns,
            int row, PlacedExtremes& extremes) {
    for (int column = 0; column < grid.nx; ++column) {
        const float value = grid.at(column, row);
        if (columns[static_cast<std::size_t>(column)] == 0) continue;
        if (value == grid::missingInFiles) ++extremes.missing;
        if (!isPresent(value)) continue;
        const bool first = extremes.present++ == 0;
        const auto placed = [&] {
            return PlacedValue{value, longitudeOf(lattice, column), latitudeOf(lattice, row)};
        };
        if (first || value < extremes.smallest.value) extremes.smallest = placed();
        if (first || value > extremes.largest.value) extremes.largest = placed();
    }
}

void append(const PlacedExtremes& more, PlacedExtremes& extremes) {
    const bool first = extremes.present == 0;
    extremes.missing += more.missing;
    extremes.present += more.present;
    if (more.present == 0) return;
    if (first || more.smallest.value < extremes.smallest.value) extremes.smallest = more.smallest;
    if (first || more.largest.value > extremes.largest.value) extremes.largest = more.largest;
}

}  // namespace

std::string gridReaderProblem(int code) {
    switch (code) {
        case -2:
            return "its first line cannot be read: a keyword, a type number and a title are expected";
        case -3:
            return "it is not a grid file: its type number is not 4";
        case -4:
            return "it is not a grid file: its keyword is not \"diamond\"";
        case -5:
            return "its header cannot be read: 19 numbers are expected behind the title, which must not hold "
                   "a blank";
        case -6:
        case -7:
            return "a data value cannot be read: the file holds fewer values than its header says, or "
                   "something else "
                   "than numbers";
        default:
            return fmt::format("the library refused it with code {}", code);
    }
}

void requireFinite(const grid::Lattice& lattice) {
    const float sum = lattice.startLongitude + lattice.endLongitude + lattice.longitudeStep +
                      lattice.startLatitude + lattice.endLatitude + lattice.latitudeStep;
    if (!std::isfinite(sum))
        throw Problem("the longitudes and latitudes of its header are not all finite numbers");
}

GridFile readGridFile(const std::string& path) { return readGridFile(readFileHead(path)); }

GridFile readGridFile(const FileHead& head) {
    if (head.kind.content != FileContent::grid)
        throw Problem(
            fmt::format("it holds something else than a grid of one quantity (type {}): {} (type {})",
                        gridFileType, head.kind.name, head.kind.type));
    base::TextScanner in(head.file.view());
    auto header = files::readGridHeader(in);
    if (!header) throw Problem(gridReaderProblem(header.failure().code));

    constexpr int unreadableValue = -7;
    const int nx = header->field.nx;
    const int ny = header->field.ny;
    const std::size_t count = grid::valueCount(nx, ny);
    if (!in.mayHold(count)) throw Problem(gridReaderProblem(unreadableValue));
    GridFile file{.header = *header,
                  .title = head.title,
                  .titleBytes = head.titleBytes,
                  .storage = base::allocateFloats(count),
                  .values = {}};
    file.header.title = {};
    file.values = {.values = file.storage.get(), .nx = nx, .ny = ny};
    const std::span<float> values(file.storage.get(), count);
    if (!files::readFieldValues(in, files::rowsOf(values, static_cast<std::size_t>(std::max(nx, 0)))))
        throw Problem(gridReaderProblem(unreadableValue));
    return file;
}

grid::Grid closedGrid(const grid::GridView& grid) {
    grid::Grid closed{{}, grid.nx + 1, grid.ny};
    closed.values.reserve(closed.view().size());
    for (int row = 0; row < grid.ny; ++row) {
        closed.values.insert(closed.values.end(), grid.row(row), grid.row(row) + grid.nx);
        closed.values.push_back(grid.at(0, row));
    }
    return closed;
}

PlacedExtremes findExtremes(const grid::GridView& grid, const grid::Lattice& lattice, const GeoBox* area) {
    constexpr double tolerance = 1e-4;
    const std::vector<char> columns = linesInside(grid.nx, [&](int column) {
        if (area == nullptr) return true;
        const double east = longitudeOf(lattice, column) - area->west + tolerance;
        return std::fmod(std::fmod(east, 360.0) + 360.0, 360.0) <= area->east - area->west + 2 * tolerance;
    });
    const std::vector<char> rows = linesInside(grid.ny, [&](int row) {
        const double latitude = latitudeOf(lattice, row);
        return area == nullptr ||
               (latitude >= area->south - tolerance && latitude <= area->north + tolerance);
    });
    const auto runs = base::collectWork(rows.size(), 1.5 * grid.nx, [&](std::size_t first, std::size_t last) {
        PlacedExtremes extremes;
        for (std::size_t row = first; row < last; ++row)
            if (rows[row] != 0) addRow(grid, lattice, columns, static_cast<int>(row), extremes);
        return extremes;
    });
    PlacedExtremes extremes;
    for (const auto& [first, run] : runs) append(run, extremes);
    return extremes;
}

}  // namespace velmar::tool
