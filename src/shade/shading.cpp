#include "shade/shading.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <optional>
#include <vector>

#include "base/messages.h"
#include "base/numbers.h"
#include "base/progress.h"
#include "shade/starts.h"

namespace velmar::shade {

using base::progress;
using grid::GridPlace;
using grid::GridView;
namespace messages = base::messages;

namespace {

/// The host's coordinates of polygons and of holes, as the places that give them; without one, positions on the grid
/// are left as they are.
struct Coordinates {
    GridPlace polygons;
    std::optional<GridPlace> holes;
};

/// Moves the stack of holes into the polygon list, the newest first. Whatever level a hole belongs to, it carries
/// the last one of the list: this is established behaviour.
void popHoles(HoleStack& holes, const ShadeLevels& levels, const Coordinates& coordinates,
              ShadePolygons& polygons) {
    for (auto hole = holes.runs.rbegin(); hole != holes.runs.rend(); ++hole)
        appendShadePolygon(polygons, holes.pointsOf(*hole), coordinates.holes, levels.last(),
                           hole->colourBelow);
    holes.clear();
}

void markAbove(const grid::LevelIndex& index, const Strip& strip, float level, grid::BitPlane& above) {
    for (int j = strip.jmin; j <= strip.jmax; ++j)
        index.classifyRow(j, level, {above.row(j), above.wordsPerRow()});
}

bool traceLevel(const Strip& strip, const ShadeLevel& level, const GridPlace& place, ShadeBuffers& buffers,
                ShadePolygons& polygons) {
    markAbove(buffers.index, strip, level.level, buffers.above);
    buffers.sides.clearWalked(strip);
    RegionTracer tracer(strip, level, place, buffers, polygons);
    return traceFromStarts(strip, buffers, tracer);
}

bool traceStrip(const Strip& strip, const ShadeLevels& levels, const GridPlace& place, ShadeBuffers& buffers,
                ShadePolygons& polygons) {
    const grid::LevelIndex::Range range = buffers.index.rangeOfRows(strip.jmin, strip.jmax);
    const float lowest = std::min(range.lowest, 9.99e33F);
    const float highest = std::max(range.highest, -9.99e33F);
    buffers.sides.markUndefinedSides(buffers.index, strip);
    int colourBelow = 0;
    for (int k = 0; k < levels.countUpTo(highest); ++k) {
        const float level = levels.level(k);
        const int levelColour = levels.colour(k);
        const bool filled = k + 1 < levels.count() && lowest > levels.level(k + 1);
        if (!filled && highest < level) continue;
        // Without a point above it a level has no outline.
        const bool outlined = !filled && highest > level;
        if (outlined && !traceLevel(strip, {level, levelColour, colourBelow}, place, buffers, polygons))
            return false;
        colourBelow = levelColour;
    }
    return true;
}

bool traceStrips(const ShadeRequest& request, const Coordinates& coordinates, ShadeBuffers& buffers,
                 ShadePolygons& polygons) {
    const int lastRow = request.grid.ny - 1;
    const int advance = request.stripRows < 1 ? lastRow : std::min(request.stripRows, lastRow);
    for (int jmin = 0; jmin < lastRow; jmin += std::min(advance, lastRow - jmin)) {
        const Strip strip{jmin, jmin + std::min(advance, lastRow - jmin)};
        if (!traceStrip(strip, request.levels, coordinates.polygons, buffers, polygons)) return false;
        popHoles(buffers.holeStack, request.levels, coordinates, polygons);
    }
    return true;
}

/// Calls `allocate`; false, and the text printed, when there is not enough memory or the size is impossible.
template <class Allocate>
bool succeeds(Allocate&& allocate, const char* textOfFailure) try {
    allocate();
    return true;
} catch (const std::exception&) {
    progress(textOfFailure);
    return false;
}

bool prepare(const ShadeRequest& request, ShadeBuffers& buffers) {
    const GridView& grid = request.grid;
    buffers.holeStack.clear();
    return succeeds([&] { buffers.outline.reserve(grid.size()); }, messages::noPointBuffer) &&
           succeeds(
               [&] {
                   buffers.index.build(grid, {request.missing, std::numeric_limits<float>::max()});
                   buffers.above.resize(grid.nx, grid.ny);
                   buffers.sides.resize(grid.nx, grid.ny);
               },
               messages::noFlagsBuffer);
}

bool tracePolygons(const ShadeRequest& request, const Coordinates& coordinates, ShadeBuffers& buffers,
                   ShadePolygons& polygons) {
    polygons.clear();
    const GridView& grid = request.grid;
    const bool hasCells = grid.values != nullptr && grid.nx > 1 && grid.ny > 1;
    if (!hasCells) return true;
    if (!prepare(request, buffers)) return false;
    if (traceStrips(request, coordinates, buffers, polygons)) return true;
    progress(messages::shadingFailed);
    return false;
}

/// Positions of grid lines from the position of the first and the spacing of each following one.
class LineTable {
public:
    LineTable(const float* steps, int lines) : steps_(steps, static_cast<std::size_t>(lines) + 1) {
        positions_.reserve(steps_.size());
        float position = 0.0F;
        for (const float step : steps_) positions_.push_back(position += step);
    }

    /// A whole coordinate is the position of a line; the fraction lies within the next spacing.
    float positionAt(float coordinate) const {
        const int last = static_cast<int>(steps_.size()) - 1;
        const int line = std::clamp(base::truncateToInt(coordinate), 0, last);
        const float fraction = coordinate - static_cast<float>(line);
        const float position = positions_[static_cast<std::size_t>(line)];
        const bool between = fraction > 0.0F && line < last;
        return between ? position + fraction * steps_[static_cast<std::size_t>(line) + 1] : position;
    }

private:
    std::span<const float> steps_;
    std::vector<float> positions_;
};

}  // namespace

int ShadeLevels::countUpTo(float value) const {
    if (levels_ != nullptr) return count_;
    return value < 0.0F ? 0 : std::min(count_ - 1, base::truncateToInt(value)) + 1;
}

bool shadeGrid(const ShadeRequest& request, const GridPlace& place, ShadeBuffers& buffers,
               ShadePolygons& polygons) {
    return tracePolygons(request, {place, place}, buffers, polygons);
}

bool shadeUnevenGrid(const ShadeRequest& request, const GridLineSteps& steps, ShadeBuffers& buffers,
                     ShadePolygons& polygons) {
    // Holes keep positions that count from 1, those of all other polygons count from 0; the tables are applied to
    // both alike.
    if (!tracePolygons(request, {numberedFromZero, std::nullopt}, buffers, polygons)) return false;
    if (polygons.runs.empty()) return true;
    const LineTable columns(steps.x, request.grid.nx);
    const LineTable rows(steps.y, request.grid.ny);
    for (base::LonLat& point : polygons.points)
        point = {columns.positionAt(point.longitude), rows.positionAt(point.latitude)};
    return true;
}

}  // namespace velmar::shade
