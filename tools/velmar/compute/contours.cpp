#include "compute/contours.h"

#include <algorithm>
#include <cmath>

#include "contour/trace.h"

namespace velmar::tool {
namespace {

/// Traces the lines; their positions on the traced grid become degrees.
void trace(ContourSet& set) {
    const grid::GridView& grid = set.grid;
    const auto [fx, fy] = set.refinement;
    const bool refined = fx > 1 || fy > 1;
    const grid::Grid fine =
        refined ? grid::refine(grid, grid::missingInFiles, set.refinement) : grid::Grid{.values = {}};
    contour::ContourBuffers buffers;
    contour::ContourLines list;
    contour::traceLevels(refined ? fine.view() : grid, grid::missingInFiles, set.levels, buffers, list);
    const grid::GridPlace place = set.lattice.place();
    set.coordinates = base::allocateFloats(2 * list.points.size());
    float* next = set.coordinates.get();
    set.lines.reserve(list.runs.size());
    for (const contour::ContourLine& line : list.runs) {
        set.lines.push_back({{{next, 2 * line.pointCount}}, line.level});
        for (const grid::GridPoint& point : list.pointsOf(line)) {
            const auto [longitude, latitude] = grid::degreesOf(point, place, set.refinement);
            *next++ = longitude;
            *next++ = latitude;
        }
    }
}

/// The lattice of a grid that begins at a place, to its last column and row.
grid::Lattice latticeOf(const grid::GridPlace& place, const grid::GridView& grid) {
    return {.startLongitude = place.startLongitude,
            .endLongitude = place.startLongitude + (static_cast<float>(grid.nx) - 1.0F) * place.longitudeStep,
            .longitudeStep = place.longitudeStep,
            .startLatitude = place.startLatitude,
            .endLatitude = place.startLatitude + (static_cast<float>(grid.ny) - 1.0F) * place.latitudeStep,
            .latitudeStep = place.latitudeStep};
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
    const grid::Grid closed =
        circlesGlobe(file.header.field) ? closedGrid(file.values) : grid::Grid{.values = {}};
    const grid::GridView grid = closed.values.empty() ? file.values : closed.view();
    ContourSet set{};
    set.levels = levels;
    set.values = base::allocateFloats(grid.size());
    std::copy_n(grid.values, grid.size(), set.values.get());
    set.grid = {set.values.get(), grid.nx, grid.ny};
    set.lattice = latticeOf(file.header.field.lattice.place(), grid);
    requireFinite(set.lattice);
    set.refinement = grid::chooseFactors(grid.nx, grid.ny);
    trace(set);
    return set;
}

}  // namespace velmar::tool
