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
    contour::TraceBuffers buffers;
    contour::LineList list;
    contour::traceLevels(refined ? fine.view() : grid, grid::missingInFiles, set.levels, buffers, list);
    const grid::GridPlace place = files::placeOf(set.lattice);
    set.coordinates = base::allocateFloats(2 * list.points.size());
    float* next = set.coordinates.get();
    set.lines.reserve(list.lines.size());
    for (const contour::ContourLine& line : list.lines) {
        set.lines.push_back({{{next, 2 * line.pointCount}}, line.level});
        for (const grid::Point& point : list.pointsOf(line)) {
            *next++ = (point.x - 1.0F) * place.dx / static_cast<float>(fx) + place.x0;
            *next++ = (point.y - 1.0F) * place.dy / static_cast<float>(fy) + place.y0;
        }
    }
}

/// The lattice of a grid that begins at a place, to its last column and row.
grid::Lattice latticeOf(const grid::GridPlace& place, const grid::GridView& grid) {
    return {.startLongitude = place.x0,
            .endLongitude = place.x0 + (static_cast<float>(grid.nx) - 1.0F) * place.dx,
            .longitudeStep = place.dx,
            .startLatitude = place.y0,
            .endLatitude = place.y0 + (static_cast<float>(grid.ny) - 1.0F) * place.dy,
            .latitudeStep = place.dy};
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
    set.lattice = latticeOf(files::placeOf(file.header.field.lattice), grid);
    requireFinite(set.lattice);
    set.refinement = grid::chooseFactors(grid.nx, grid.ny);
    trace(set);
    return set;
}

}  // namespace velmar::tool
