#include <cstdint>

#include "base/messages.h"
#include "base/progress.h"
#include "capi/barrier.h"
#include "capi/state.h"
#include "sphere/greatCircle.h"
#include "triangles/stationContours.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

ResultBlock packLines(const triangles::StationLines& lines) {
    if (lines.runs.empty()) return nullptr;
    const std::size_t size = 1 + 2 * (lines.points.size() + lines.runs.size());
    base::progress(base::messages::stationLinesSize, {size});
    ResultBlock block = base::allocateFloats(size);
    BlockWriter out(block);
    out.appendCount(size);
    std::size_t next = 1;
    for (const triangles::StationLine& line : lines.runs) {
        out.appendCount(line.pointCount);
        out.append(line.level);
        out.append(lines.pointsOf(line));
        next += 2 + 2 * line.pointCount;
        base::progress(base::messages::nextElement, {next});
    }
    return block;
}

}  // namespace
}  // namespace velmar::capi

std::intptr_t SanJiao(const float* x, const float* y, float* values, const float* levels, int n, int mode,
                      float start, float interval, int levelCount) noexcept {
    using namespace velmar;
    constexpr int leastStations = 3;
    if (n < leastStations || mode < 0 || mode > 2 || x == nullptr || y == nullptr || values == nullptr)
        return 0;
    const triangles::StationLevelRequest request{static_cast<triangles::LevelChoice>(mode), start, interval,
                                                 levels, levels == nullptr ? 0 : levelCount};
    const auto count = static_cast<std::size_t>(n);
    float* const block = capi::guarded<float*>(nullptr, [&] {
        return capi::packLines(triangles::contourStations({x, count}, {y, count}, {values, count}, request,
                                                          capi::state().stationLevels))
            .release();
    });
    return reinterpret_cast<std::intptr_t>(block);
}

void FJJS2(float lon1, float lat1, float lon2, float lat2, float* bearing, float* angle,
           float* distance) noexcept {
    const auto way = velmar::sphere::greatCircle({lon1, lat1}, {lon2, lat2});
    if (bearing != nullptr) *bearing = way.bearing;
    if (angle != nullptr) *angle = way.angle;
    if (distance != nullptr) *distance = way.distance;
}
