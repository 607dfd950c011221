#include "compute/contours.h"

#include <utility>

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

}  // namespace

bool Isoline::closed() const {
    return size() > 2 && coordinates[0] == coordinates[2 * size() - 2] &&
           coordinates[1] == coordinates[2 * size() - 1];
}

grid::Lattice ContourSet::tracedLattice() const {
    grid::Lattice fine = lattice;
    fine.longitudeStep /= static_cast<float>(refinement.x);
    fine.latitudeStep /= static_cast<float>(refinement.y);
    return fine;
}

ContourSet drawContours(GlobeGrid grid, const std::vector<float>& levels) {
    ContourSet set{std::move(grid), {}, levels, {}, {}};
    set.refinement = grid::chooseFactors(set.grid.nx, set.grid.ny);
    trace(set);
    return set;
}

}  // namespace velmar::tool
