#include <algorithm>
#include <cstdio>
#include <span>
#include <vector>

#include "base/messages.h"
#include "base/progress.h"
#include "capi/barrier.h"
#include "capi/state.h"
#include "files/diagnosticFile.h"
#include "polygon/polygon.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

using polygon::PolygonView;
using polygon::Rectangle;

/// The diagnostic file has this very name on every platform. Where it does not name a drive, the file is in the
/// current directory.
constexpr const char* diagnosticFile = "C:\\clipdebug.txt";

/// Polygons of fewer points have their outline in the array that is kept between calls.
constexpr int largePolygon = 10;

/// Fills a polygon as described for polygonfill. Marks in the diagnostic file show how far the call has come.
float* fillPolygon(float* points, int n, const Rectangle& rectangle, int& count) {
    const files::OpenFile marks = files::openDiagnosticFile(diagnosticFile);
    if (marks == nullptr) {
        std::fputs(base::messages::cannotOpenDiagnosticFile, stderr);
        return nullptr;
    }
    count = 0;
    std::fputs("debug_A\ndebug_B\n", marks.get());
    if (points == nullptr || n < 3) return points;
    std::fputs("debug_C\n", marks.get());

    const PolygonView polygon{points, static_cast<std::size_t>(n)};
    ResultBlock block;
    std::span<float> area = state().smallOutline;
    if (n >= largePolygon) {
        block = guarded(ResultBlock(), [&] { return base::allocateFloats(4 * polygon.count); });
        if (block == nullptr) {
            base::progress(base::messages::noMemoryForFill);
            return points;
        }
        area = {block.get(), 4 * polygon.count};
    }
    std::fputs("debug_D\ndebug1\n", marks.get());
    float* const end = polygon::keepInside(polygon, rectangle, area.data());
    std::fill(end, area.data() + area.size(), 0.0F);
    std::fputs("debug-end\n", marks.get());
    count = static_cast<int>((end - area.data()) / 2);
    static_cast<void>(block.release());
    return end;
}

/// Empty when there are no points.
PolygonView polygonOf(const float* points, int n) {
    return {points, points == nullptr || n < 1 ? 0 : static_cast<std::size_t>(n)};
}

int pointCount(const std::vector<float>& polygon) { return static_cast<int>(polygon.size() / 2); }

}  // namespace
}  // namespace velmar::capi

using namespace velmar;
using namespace velmar::capi;

float* polygonfill(float* points, int n, float xlo, float ylo, float xhi, float yhi, int* outCount) noexcept {
    if (outCount == nullptr) return points;
    return guarded(points, [&] { return fillPolygon(points, n, {xlo, ylo, xhi, yhi}, *outCount); });
}

int Clip(float* points, float xmin, float ymin, float xmax, float ymax, int n) noexcept {
    return guarded(0, [&] {
        const std::vector<float> clipped =
            polygon::clipByRectangle(polygonOf(points, n), {xmin, ymin, xmax, ymax});
        std::copy(clipped.begin(), clipped.end(), points);
        return pointCount(clipped);
    });
}

float* SHClip(const float* points, float ex1, float ey1, float ex2, float ey2, int n,
              int* outCount) noexcept {
    int count = 0;
    float* const block = guarded<float*>(nullptr, [&]() -> float* {
        state().lastClipCount = 0;
        if (points == nullptr && n > 0) return nullptr;
        const PolygonView polygon = polygonOf(points, n);
        const std::vector<float> clipped = polygon::clipByEdge(polygon, {{ex1, ey1}, {ex2, ey2}});
        const std::size_t room = 4 * std::max<std::size_t>(polygon.count, 1);
        ResultBlock result = base::allocateFloats(room);
        float* const end = std::copy(clipped.begin(), clipped.end(), result.get());
        std::fill(end, result.get() + room, 0.0F);
        count = pointCount(clipped);
        state().lastClipCount = count;
        return result.release();
    });
    if (outCount != nullptr) *outCount = count;
    return block;
}

int SHClipPntNum() noexcept {
    return guarded(0, [] { return state().lastClipCount; });
}
