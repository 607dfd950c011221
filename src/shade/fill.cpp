#include "shade/fill.h"

#include <algorithm>
#include <cstdio>
#include <span>

#include "frame/barrier.h"
#include "frame/block.h"
#include "frame/diagnosticFile.h"
#include "frame/messages.h"
#include "frame/progress.h"

namespace velmar::shade {

namespace {

using frame::Point;

/// The diagnostic file has this very name on every platform. Where it names no drive, the file stands in the
/// current directory.
constexpr const char* diagnosticFile = "C:\\clipdebug.txt";

/// Polygons of fewer points have their outline in the module's own area.
constexpr int largePolygon = 10;

bool within(float value, float low, float high) { return low <= value && value <= high; }

bool contains(const Rectangle& r, Point p) { return within(p.x, r.xlo, r.xhi) && within(p.y, r.ylo, r.yhi); }

float clamped(float value, float low, float high) {
    if (value < low) return low;
    return value > high ? high : value;
}

/// Where the way between two points, one inside and one not, passes the rim. The vertical sides are tried
/// first; a crossing on one of them is final. One that rounding has put beyond the end of its side stands
/// too, as long as the way itself does not leave the range of y.
Point crossing(const Rectangle& r, Point a, Point b) {
    const bool withinRows = within(a.y, r.ylo, r.yhi) && within(b.y, r.ylo, r.yhi);
    if (!(within(a.x, r.xlo, r.xhi) && within(b.x, r.xlo, r.xhi))) {
        const float x = a.x > r.xhi || b.x > r.xhi ? r.xhi : r.xlo;
        const float y = a.y - (a.x - x) * (a.y - b.y) / (a.x - b.x);
        if (withinRows || within(y, r.ylo, r.yhi)) return {x, y};
    }
    const float y = a.y > r.yhi || b.y > r.yhi ? r.yhi : r.ylo;
    return {a.x - (a.x - b.x) * (a.y - y) / (a.y - b.y), y};
}

/// Writes the outline and returns its end. Of two neighbours at most one brings a crossing, none the first,
/// so that there are fewer than two points for each of the polygon.
float* keepInside(const PolygonView& polygon, const Rectangle& r, float* outline) {
    const auto append = [&outline](Point p) {
        *outline++ = p.x;
        *outline++ = p.y;
    };
    bool previousInside = contains(r, polygon.at(0));
    for (std::size_t k = 0; k < polygon.count; ++k) {
        const Point point = polygon.at(k);
        const bool inside = contains(r, point);
        if (inside != previousInside) append(crossing(r, polygon.at(k - 1), point));
        append({clamped(point.x, r.xlo, r.xhi), clamped(point.y, r.ylo, r.yhi)});
        previousInside = inside;
    }
    return outline;
}

}  // namespace

float* fillPolygon(float* points, int n, const Rectangle& rectangle, PolygonToolsState& state, int& count) {
    const frame::OpenFile marks = frame::openDiagnosticFile(diagnosticFile);
    if (marks == nullptr) {
        std::fputs(frame::messages::cannotOpenDiagnosticFile, stderr);
        return nullptr;
    }
    count = 0;
    std::fputs("debug_A\ndebug_B\n", marks.get());
    if (points == nullptr || n < 3) return points;
    std::fputs("debug_C\n", marks.get());

    const PolygonView polygon{points, static_cast<std::size_t>(n)};
    frame::ResultBlock block;
    std::span<float> area = state.smallOutline;
    if (n >= largePolygon) {
        block = frame::guarded(frame::ResultBlock(), [&] { return frame::allocateBlock(4 * polygon.count); });
        if (block == nullptr) {
            frame::progress(frame::messages::noMemoryForFill);
            return points;
        }
        area = {block.get(), 4 * polygon.count};
    }
    std::fputs("debug_D\ndebug1\n", marks.get());
    float* const end = keepInside(polygon, rectangle, area.data());
    std::fill(end, area.data() + area.size(), 0.0F);
    std::fputs("debug-end\n", marks.get());
    count = static_cast<int>((end - area.data()) / 2);
    static_cast<void>(block.release());
    return end;
}

}  // namespace velmar::shade
