#include <cstdint>

#include "frame/barrier.h"
#include "geometry/sphere.h"
#include "geometry/state.h"
#include "geometry/stationContours.h"
#include "velmarBaseA.h"

intptr_t SanJiao(const float* x, const float* y, float* values, const float* levels, int n, int mode,
                 float start, float interval, int levelCount) noexcept {
    using namespace velmar::geometry;
    constexpr int leastStations = 3;
    if (n < leastStations || mode < 0 || mode > 2 || x == nullptr || y == nullptr || values == nullptr)
        return 0;
    const LevelRequest request{static_cast<LevelChoice>(mode), start, interval, levels,
                               levels == nullptr ? 0 : levelCount};
    const auto count = static_cast<std::size_t>(n);
    float* const block = velmar::frame::guarded<float*>(nullptr, [&] {
        return contourStations({x, count}, {y, count}, {values, count}, request, state().levels).release();
    });
    return reinterpret_cast<std::intptr_t>(block);
}

void FJJS2(float lon1, float lat1, float lon2, float lat2, float* bearing, float* angle,
           float* distance) noexcept {
    const auto way = velmar::geometry::greatCircle({lon1, lat1}, {lon2, lat2});
    if (bearing != nullptr) *bearing = way.bearing;
    if (angle != nullptr) *angle = way.angle;
    if (distance != nullptr) *distance = way.distance;
}
