#include "wind/tracer.h"

#include <algorithm>
#include <cmath>

namespace velmar::wind {
namespace {

using grid::GridView;

constexpr std::int64_t noCell = -999;
constexpr int mostStepsInCell = 10;
constexpr int stepsBetweenArrows = 20;
/// Both components below this are a calm, m/s.
constexpr float calm = 0.1F;
constexpr int colourOfMissing = 15;
constexpr int largestColour = 99;

bool anyCornerIs(const GridView& grid, float missing, int i, int j) {
    const float* const lower = grid.row(j) + i;
    const float* const upper = lower + grid.nx;
    return lower[0] == missing || lower[1] == missing || upper[0] == missing || upper[1] == missing;
}

bool isPart(GridOffset part) { return part.x >= 0 && part.x < 1 && part.y >= 0 && part.y < 1; }

}  // namespace

Tracer::Tracer(const WindField& wind, const LineColours& colours, const grid::Lattice& lattice,
               int cellsPerLength, FlagGrid& flags, Drawing& drawing)
    : wind_(wind),
      colours_(colours),
      lattice_(lattice),
      cellsPerLength_(static_cast<float>(cellsPerLength)),
      stepLength_(0.5F / cellsPerLength_),
      flags_(flags),
      drawing_(drawing) {}

bool Tracer::trace(GridOffset start) {
    bool hasFlagged = false;
    for (const FlowDirection direction : {FlowDirection::withFlow, FlowDirection::againstFlow}) {
        drawing_.addPoint(Pen::up, degrees(start));
        hasFlagged |= trace(start, direction);
    }
    return hasFlagged;
}

bool Tracer::trace(GridOffset start, FlowDirection direction) {
    // A line against the flow gets its first arrow early, so that short lines have one too.
    const int stepsSinceArrow = direction == FlowDirection::withFlow ? 0 : stepsBetweenArrows - 1;
    Walk walk{start, noCell, 0, stepsSinceArrow, false, false, degrees(start)};
    while (step(walk, direction) && enterCell(walk)) draw(walk, direction);
    return walk.hasFlagged;
}

/// Whether there are grid points on all sides. Large floats are whole numbers far apart, so the comparison is
/// made in double precision.
bool Tracer::isOnGrid(GridOffset place) const {
    return place.x >= 0 && place.y >= 0 && static_cast<double>(place.x) < wind_.u.nx - 1 &&
           static_cast<double>(place.y) < wind_.u.ny - 1;
}

/// Adding and subtracting 1 is deliberate: it rounds to single precision.
base::LonLat Tracer::degrees(GridOffset place) const {
    return {lattice_.startLongitude + ((place.x + 1.0F) - 1.0F) * lattice_.longitudeStep,
            lattice_.startLatitude + ((place.y + 1.0F) - 1.0F) * lattice_.latitudeStep};
}

/// The place as seen from the corner of the current grid cell, exact inside the cell.
GridOffset Tracer::partOf(GridOffset place) const {
    return {place.x - gridCell_.corner.x, place.y - gridCell_.corner.y};
}

std::int64_t Tracer::cellOf(GridOffset place) const {
    return static_cast<std::int64_t>(place.y * cellsPerLength_) * flags_.columns() +
           static_cast<std::int64_t>(place.x * cellsPerLength_);
}

void Tracer::enterGridCell(int i, int j) {
    const auto corners = [&](const GridView& grid) -> Corners {
        const float* const lower = grid.row(j) + i;
        const float* const upper = lower + grid.nx;
        return {lower[0], lower[1] - lower[0], upper[0], upper[1] - upper[0]};
    };
    const bool hasWind =
        !anyCornerIs(wind_.u, wind_.uMissing, i, j) && !anyCornerIs(wind_.v, wind_.vMissing, i, j);
    gridCell_ = {{static_cast<float>(i), static_cast<float>(j)},
                 hasWind,
                 false,
                 corners(wind_.u),
                 corners(wind_.v),
                 {}};
    if (colours_.grid.values == nullptr) return;
    gridCell_.hasColour = !anyCornerIs(colours_.grid, colours_.missing, i, j);
    gridCell_.colour = corners(colours_.grid);
}

void Tracer::chooseColour(GridOffset part) {
    if (colours_.grid.values != nullptr) {
        colour_ = gridCell_.hasColour ? colours_.table(gridCell_.colour.between(part)) : colourOfMissing;
    }
    if (colour_ != previousColour_ && colour_ > -1) drawing_.currentColour = std::min(colour_, largestColour);
    previousColour_ = colour_;
}

/// Goes half a cell along the wind. Returns false at the edge and where there is no wind.
bool Tracer::step(Walk& walk, FlowDirection direction) {
    GridOffset part = partOf(walk.place);
    if (!isPart(part)) {
        if (!isOnGrid(walk.place)) return false;
        enterGridCell(static_cast<int>(walk.place.x), static_cast<int>(walk.place.y));
        part = partOf(walk.place);
    }
    if (!gridCell_.hasWind) return false;
    chooseColour(part);

    const float u = gridCell_.u.between(part);
    const float v = gridCell_.v.between(part);
    const float eastward = std::fabs(u);
    const float northward = std::fabs(v);
    if (eastward < calm && northward < calm) return false;
    if (!std::isfinite(u) || !std::isfinite(v)) return false;
    const float longer = eastward > northward ? eastward : northward;
    const float length = direction == FlowDirection::withFlow ? stepLength_ : -stepLength_;
    walk.place.x += u / longer * length;
    walk.place.y += v / longer * length;
    return true;
}

/// Flags the cell that the last step has left, if any. Returns false where the line ends: in a flagged cell, or
/// when it makes no progress.
bool Tracer::enterCell(Walk& walk) {
    const std::int64_t cell = cellOf(walk.place);
    if (!flags_.contains(cell) || flags_.test(cell)) return false;
    if (cell == walk.cell) return ++walk.stepsInCell <= mostStepsInCell;
    if (walk.cell != noCell) {
        flags_.set(walk.cell);
        walk.hasFlagged = true;
    }
    walk.cell = cell;
    walk.stepsInCell = 0;
    return true;
}

void Tracer::draw(Walk& walk, FlowDirection direction) {
    const bool drawn = colour_ > -1;
    const base::LonLat here = degrees(walk.place);
    if (drawn) {
        if (walk.penIsUp) drawing_.addPoint(Pen::up, previous_);
        drawing_.addPoint(Pen::down, here);
    }
    walk.penIsUp = !drawn;
    previous_ = here;
    if (++walk.stepsSinceArrow > stepsBetweenArrows) {
        const bool withFlow = direction == FlowDirection::withFlow;
        if (drawn) drawing_.addArrow(withFlow ? walk.last : here, withFlow ? here : walk.last);
        walk.stepsSinceArrow = 0;
    }
    walk.last = here;
}

}  // namespace velmar::wind
