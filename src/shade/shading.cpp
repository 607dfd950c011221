#include "shade/shading.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <vector>

#include "frame/messages.h"
#include "frame/numbers.h"
#include "frame/progress.h"
#include "shade/state.h"
#include "shade/strips.h"

namespace velmar::shade {

using frame::GridPlace;
using frame::GridView;
using frame::progress;
using frame::ResultBlock;
namespace messages = frame::messages;

namespace {

/// Calls `allocate`; false, and the text printed, when there is no memory, or more is asked for than there can be.
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

/// Leaves the polygons of a grid in the list. False on failure.
bool tracePolygons(const ShadeRequest& request, const GridPlace& place, HolePlace holePlace) {
    auto& [polygons, buffers] = state();
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
        const int line = std::clamp(frame::truncateToInt(coordinate), 0, last);
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
    return value < 0.0F ? 0 : std::min(count_ - 1, frame::truncateToInt(value)) + 1;
}

ResultBlock shade(const ShadeRequest& request, const GridPlace& place) {
    frame::KeptMemory memory(state());
    if (!tracePolygons(request, place, HolePlace::degrees)) return nullptr;
    ResultBlock block = buildShadeResult(state().polygons, request.grid, place);
    memory.succeed();
    return block;
}

ResultBlock shadeUneven(const ShadeRequest& request, const float* xSteps, const float* ySteps) {
    if (xSteps == nullptr || ySteps == nullptr) return nullptr;
    // Holes keep grid coordinates that count from 1, all other polygons get such that count from 0; the
    // tables are applied to both alike.
    constexpr GridPlace gridColumns{0.0F, 0.0F, 1.0F, 1.0F};
    frame::KeptMemory memory(state());
    if (!tracePolygons(request, gridColumns, HolePlace::gridColumns)) return nullptr;
    ShadePolygonList& polygons = state().polygons;
    if (polygons.polygons.empty()) return nullptr;
    const LineTable columns(xSteps, request.grid.nx);
    const LineTable rows(ySteps, request.grid.ny);
    for (Point& point : polygons.points)
        point = {columns.mapTableCoordinate(point.x), rows.mapTableCoordinate(point.y)};
    ResultBlock block = buildShadeResult(polygons, request.grid, gridColumns);
    memory.succeed();
    return block;
}

}  // namespace velmar::shade
