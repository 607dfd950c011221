#include "shade/shading.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <vector>

#include "base/messages.h"
#include "base/numbers.h"
#include "base/progress.h"
#include "shade/strips.h"

namespace velmar::shade {

using base::progress;
using grid::GridPlace;
using grid::GridView;
namespace messages = base::messages;

namespace {

/// Calls `allocate`; false, and the text printed, when there is not enough memory or the size is impossible.
template <class Allocate>
bool succeeds(Allocate&& allocate, const char* textOfFailure) try {
    allocate();
    return true;
} catch (const std::exception&) {
    progress(textOfFailure);
    return false;
}

bool prepare(const ShadeRequest& request, TraceBuffers& buffers) {
    const GridView& grid = request.grid;
    buffers.holeStack.clear();
    return succeeds([&] { buffers.xyBuffer.reserve(grid.size()); }, messages::noPointBuffer) &&
           succeeds(
               [&] {
                   buffers.index.build(grid, {request.undefValue, std::numeric_limits<float>::max()});
                   buffers.above.resize(grid.nx, grid.ny);
                   buffers.sides.resize(grid.nx, grid.ny);
               },
               messages::noFlagsBuffer);
}

bool tracePolygons(const ShadeRequest& request, const GridPlace& place, HolePlace holePlace,
                   TraceBuffers& buffers, ShadePolygonList& polygons) {
    freeShadePolygons(polygons);
    const GridView& grid = request.grid;
    const bool hasCells = grid.values != nullptr && grid.nx > 1 && grid.ny > 1;
    if (!hasCells) return true;
    if (!prepare(request, buffers)) return false;
    if (traceStrips(request, place, holePlace, buffers, polygons)) return true;
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
    float mapTableCoordinate(float coordinate) const {
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

bool shadeGrid(const ShadeRequest& request, const GridPlace& place, TraceBuffers& buffers,
               ShadePolygonList& polygons) {
    return tracePolygons(request, place, HolePlace::degrees, buffers, polygons);
}

bool shadeUnevenGrid(const ShadeRequest& request, const GridLineSteps& steps, TraceBuffers& buffers,
                     ShadePolygonList& polygons) {
    // Holes keep grid coordinates that count from 1, those of all other polygons count from 0; the tables are
    // applied to both alike.
    if (!tracePolygons(request, gridColumns, HolePlace::gridColumns, buffers, polygons)) return false;
    if (polygons.polygons.empty()) return true;
    const LineTable columns(steps.x, request.grid.nx);
    const LineTable rows(steps.y, request.grid.ny);
    for (Point& point : polygons.points)
        point = {columns.mapTableCoordinate(point.x), rows.mapTableCoordinate(point.y)};
    return true;
}

}  // namespace velmar::shade
