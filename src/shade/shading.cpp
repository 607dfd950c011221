#include "shade/shading.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <optional>
#include <vector>

#include "base/messages.h"
#include "base/numbers.h"
#include "base/progress.h"
#include "base/threads.h"
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

/// The levels that have an outline in a strip, and the colours of their polygons.
std::vector<ShadeLevel> outlinedLevels(const grid::LevelIndex::Range& range, const ShadeLevels& levels) {
    const float lowest = std::min(range.lowest, 9.99e33F);
    const float highest = std::max(range.highest, -9.99e33F);
    std::vector<ShadeLevel> outlined;
    int colourBelow = 0;
    for (int k = 0; k < levels.countUpTo(highest); ++k) {
        const float level = levels.level(k);
        const int levelColour = levels.colour(k);
        const bool filled = k + 1 < levels.count() && lowest > levels.level(k + 1);
        if (!filled && highest < level) continue;
        // Without a point above it a level has no outline.
        if (!filled && highest > level) outlined.push_back({level, levelColour, colourBelow});
        colourBelow = levelColour;
    }
    return outlined;
}

/// How a grid is traced: with the texts that belong to it, by one thread, or silently by many. Where a silent trace
/// fails in anything, the grid must be traced again for the texts that tell of it.
enum class Tracing { withTexts, silent };

/// Traces the strips of a grid.
class StripsTracer {
public:
    StripsTracer(const ShadeRequest& request, const Coordinates& coordinates, const grid::LevelIndex& index,
                 Tracing tracing)
        : request_(request), coordinates_(coordinates), index_(index), silent_(tracing == Tracing::silent) {}

    /// Traces all strips. False on failure.
    bool traceAll(StripBuffers& buffers, ShadePolygons& polygons) const;

private:
    /// What a thread has traced beside the one that traces the first parts, and whether that was all.
    struct Traced {
        bool complete;
        ShadePolygons polygons;
        HoleStack holes;
    };

    bool traceStrips(int first, int last, StripBuffers& buffers, ShadePolygons& polygons) const;
    bool traceStrip(const Strip& strip, StripBuffers& buffers, ShadePolygons& polygons) const;
    bool traceLevels(const Strip& strip, std::span<const ShadeLevel> levels, StripBuffers& buffers,
                     ShadePolygons& polygons) const;
    bool shareLevels(const Strip& strip, std::span<const ShadeLevel> levels, double nanosecondsEach,
                     StripBuffers& buffers, ShadePolygons& polygons) const;
    int lastRow() const { return request_.grid.ny - 1; }
    int advance() const {
        return request_.stripRows < 1 ? lastRow() : std::min(request_.stripRows, lastRow());
    }

    const ShadeRequest& request_;
    const Coordinates& coordinates_;
    const grid::LevelIndex& index_;
    const bool silent_;
};

bool StripsTracer::traceLevels(const Strip& strip, std::span<const ShadeLevel> levels, StripBuffers& buffers,
                               ShadePolygons& polygons) const {
    buffers.begin(index_, strip);
    bool hasFailed = false;
    for (const ShadeLevel& level : levels) {
        buffers.beginLevel(index_, strip, level.level);
        RegionTracer tracer(index_, strip, level, coordinates_.polygons, buffers, polygons);
        if (!traceFromStarts(strip, request_.grid.nx, buffers, tracer, hasFailed)) return false;
    }
    return !(silent_ && hasFailed);
}

bool StripsTracer::traceStrip(const Strip& strip, StripBuffers& buffers, ShadePolygons& polygons) const {
    const std::vector<ShadeLevel> levels =
        outlinedLevels(index_.rangeOfRows(strip.jmin, strip.jmax), request_.levels);
    const double nanosecondsEach = 2.0 * request_.grid.nx * strip.rows();
    const bool complete = base::isShared(levels.size(), nanosecondsEach)
                              ? shareLevels(strip, levels, nanosecondsEach, buffers, polygons)
                              : traceLevels(strip, levels, buffers, polygons);
    if (!complete || buffers.holeStack.runs.size() >= mostHoles) return false;
    popHoles(buffers.holeStack, request_.levels, coordinates_, polygons);
    return true;
}

bool StripsTracer::shareLevels(const Strip& strip, std::span<const ShadeLevel> levels, double nanosecondsEach,
                               StripBuffers& buffers, ShadePolygons& polygons) const {
    const auto others =
        base::collectWork(levels.size(), nanosecondsEach, [&](std::size_t first, std::size_t last) {
            const base::SilentThread silence(silent_);
            const auto run = levels.subspan(first, last - first);
            if (first == 0) return Traced{traceLevels(strip, run, buffers, polygons), {}, {}};
            StripBuffers own;
            Traced traced{};
            traced.complete = traceLevels(strip, run, own, traced.polygons);
            traced.holes = std::move(own.holeStack);
            return traced;
        });
    bool complete = true;
    for (const auto& [first, traced] : others) {
        complete = complete && traced.complete;
        polygons.append(traced.polygons);
        buffers.holeStack.append(traced.holes);
    }
    return complete;
}

bool StripsTracer::traceStrips(int first, int last, StripBuffers& buffers, ShadePolygons& polygons) const {
    for (int k = first; k < last; ++k) {
        const int jmin = k * advance();
        const Strip strip{jmin, jmin + std::min(advance(), lastRow() - jmin)};
        if (!traceStrip(strip, buffers, polygons)) return false;
    }
    return true;
}

bool StripsTracer::traceAll(StripBuffers& buffers, ShadePolygons& polygons) const {
    const int strips = (lastRow() - 1) / advance() + 1;
    const double nanosecondsEach = 5.0 * request_.grid.nx * advance();
    const base::SilentThread silence(silent_);
    const auto others = base::collectWork(
        static_cast<std::size_t>(strips), nanosecondsEach, [&](std::size_t first, std::size_t last) {
            const base::SilentThread alsoHere(silent_);
            const auto from = static_cast<int>(first);
            const auto to = static_cast<int>(last);
            if (first == 0) return Traced{traceStrips(from, to, buffers, polygons), {}, {}};
            StripBuffers own;
            Traced traced{};
            traced.complete = traceStrips(from, to, own, traced.polygons);
            return traced;
        });
    bool complete = true;
    for (const auto& [first, traced] : others) {
        complete = complete && traced.complete;
        polygons.append(traced.polygons);
    }
    return complete;
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
    return succeeds([&] { buffers.strip.outline.reserve(grid.size()); }, messages::noPointBuffer) &&
           succeeds(
               [&] {
                   buffers.index.build(grid, {request.missing, std::numeric_limits<float>::max()});
               },
               messages::noFlagsBuffer);
}

bool tracePolygons(const ShadeRequest& request, const Coordinates& coordinates, ShadeBuffers& buffers,
                   ShadePolygons& polygons) {
    const auto traced = [&](Tracing tracing) {
        polygons.clear();
        buffers.strip.holeStack.clear();
        return StripsTracer(request, coordinates, buffers.index, tracing).traceAll(buffers.strip, polygons);
    };
    polygons.clear();
    const GridView& grid = request.grid;
    const bool hasCells = grid.values != nullptr && grid.nx > 1 && grid.ny > 1;
    if (!hasCells) return true;
    if (!prepare(request, buffers)) return false;
    if (traced(Tracing::silent)) {
        printPolygons(polygons);
        return true;
    }
    const base::UnsharedWork unshared;
    if (traced(Tracing::withTexts)) return true;
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
