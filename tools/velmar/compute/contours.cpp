#include "compute/contours.h"

#include <cmath>

#include "compute/blockReader.h"

namespace velmar::tool {
namespace {

Isoline readLine(BlockReader& in) {
    const std::size_t points = in.count();
    const float level = in.value();
    in.value();
    return {{in.values(2 * points)}, level};
}

Block contourBlock(const GridFile& file, const std::vector<float>& levels) {
    constexpr int levelList = 2;
    // The list must not be null even when it is empty.
    const float noLevel = 0;
    const float* const list = levels.empty() ? &noLevel : levels.data();
    const grid::Grid closed =
        circlesGlobe(file.header.field) ? closedGrid(file.values) : grid::Grid{.values = {}};
    const grid::GridView grid = closed.values.empty() ? file.values : closed.view();
    const grid::GridPlace place = files::placeOf(file.header.field.lattice);
    return ownedBlock(contour2D(grid.values, grid::missingInFiles, grid.nx, grid.ny, levelList, 0, 0, 0, list,
                                static_cast<int>(levels.size()), place.x0, place.y0, place.dx, place.dy));
}

}  // namespace

bool Isoline::closed() const {
    return size() > 2 && coordinates[0] == coordinates[2 * size() - 2] &&
           coordinates[1] == coordinates[2 * size() - 1];
}

bool ContourSet::circlesGlobe() const {
    constexpr double tolerance = 0.5;
    return std::fabs(std::fabs(lattice.endLongitude - lattice.startLongitude) - 360.0) < tolerance;
}

grid::Lattice ContourSet::tracedLattice() const {
    grid::Lattice fine = lattice;
    fine.longitudeStep /= static_cast<float>(refinement.x);
    fine.latitudeStep /= static_cast<float>(refinement.y);
    return fine;
}

ContourSet drawContours(const GridFile& file, const std::vector<float>& levels) {
    ContourSet set{};
    set.block = contourBlock(file, levels);
    set.levels = levels;

    BlockReader in(set.block.get() + 1);
    const std::size_t lineCount = in.count();
    set.lines.reserve(lineCount);
    for (std::size_t k = 0; k < lineCount; ++k) set.lines.push_back(readLine(in));
    in.value();  // the separator
    set.grid.nx = static_cast<int>(in.value());
    set.grid.ny = static_cast<int>(in.value());
    grid::Lattice& lattice = set.lattice;
    for (float* field : {&lattice.startLongitude, &lattice.startLatitude, &lattice.endLongitude,
                         &lattice.endLatitude, &lattice.longitudeStep, &lattice.latitudeStep})
        *field = in.value();
    set.grid.values = in.values(set.grid.size()).data();
    requireFinite(lattice);
    set.refinement = grid::chooseFactors(set.grid.nx, set.grid.ny);
    return set;
}

}  // namespace velmar::tool
