#include "read/gridFile.h"

#include <fmt/format.h>

#include <cmath>
#include <span>

#include "base/scanner.h"
#include "common/text.h"

namespace velmar::tool {
namespace {

bool isInside(const GeoBox& area, double longitude, double latitude) {
    constexpr double tolerance = 1e-4;
    if (latitude < area.south - tolerance || latitude > area.north + tolerance) return false;
    const double eastOfWest = std::fmod(std::fmod(longitude - area.west + tolerance, 360.0) + 360.0, 360.0);
    return eastOfWest <= area.east - area.west + 2 * tolerance;
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
    if (in.read(std::span(file.storage.get(), count)) < count)
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
    PlacedExtremes extremes;
    for (int row = 0; row < grid.ny; ++row) {
        for (int column = 0; column < grid.nx; ++column) {
            const PlacedValue point{
                grid.at(column, row),
                lattice.startLongitude + static_cast<double>(column) * lattice.longitudeStep,
                lattice.startLatitude + static_cast<double>(row) * lattice.latitudeStep};
            if (area != nullptr && !isInside(*area, point.longitude, point.latitude)) continue;
            if (point.value == grid::missingInFiles) ++extremes.missing;
            if (!isPresent(point.value)) continue;
            const bool first = extremes.present++ == 0;
            if (first || point.value < extremes.smallest.value) extremes.smallest = point;
            if (first || point.value > extremes.largest.value) extremes.largest = point;
        }
    }
    return extremes;
}

}  // namespace velmar::tool
