#include <algorithm>
#include <limits>
#include <optional>
#include <span>

#include "analysis/barnes.h"
#include "analysis/cressman.h"
#include "analysis/nearestFields.h"
#include "analysis/surfaceAnalysis.h"
#include "analysis/valueAnalysis.h"
#include "contour/refine.h"
#include "frame/barrier.h"
#include "velmarBaseA.h"

namespace {

using namespace velmar::analysis;
using velmar::contour::CubicForm;
using velmar::contour::refineInto;
using velmar::frame::allocateBlock;
using velmar::frame::GridView;
using velmar::frame::guarded;
using velmar::frame::guardedReader;
using velmar::frame::ResultBlock;

/// The stations of a call; nothing when a list is missing.
std::optional<StationView> stationsOf(int n, const float* lon, const float* lat, const float* value) {
    if (n < 1) return StationView{};
    if (lon == nullptr || lat == nullptr || value == nullptr) return std::nullopt;
    const auto count = static_cast<std::size_t>(n);
    return StationView{{lon, count}, {lat, count}, {value, count}};
}

}  // namespace

float* OAReadVelmar1(const char* path, int method, int element, int autoBounds, float startLon, float endLon,
                     float startLat, float endLat, float latStep, float lonStep, float maskRadius) noexcept {
    return guardedReader(-4, [&] {
        const AreaRequest request{autoBounds != 0, {startLon, endLon, startLat, endLat}, lonStep, latStep};
        return analyseSurfaceFile(path, Method{method}, element, request, maskRadius);
    });
}

float* OAReadVelmar3(const char* path, int method, int autoBounds, float startLon, float endLon,
                     float startLat, float endLat, float latStep, float lonStep, float maskRadius) noexcept {
    return guardedReader(-9, [&] {
        const AreaRequest request{autoBounds != 0, {startLon, endLon, startLat, endLat}, lonStep, latStep};
        return analyseStationValues(path, Method{method}, request, maskRadius);
    });
}

float* ReadVelmar1Tqq(const char* path, int /*unused*/, int element, int autoBounds, float startLon,
                      float endLon, float startLat, float endLat, float latStep, float lonStep,
                      float radius) noexcept {
    return guardedReader(-4, [&] {
        const AreaRequest request{autoBounds != 0, {startLon, endLon, startLat, endLat}, lonStep, latStep};
        return flagSurfaceFile(path, element, request, radius);
    });
}

float* TqqOA(const float* lon, const float* lat, const float* value, int n, int autoBounds, float startLon,
             float endLon, float startLat, float endLat, float latStep, float lonStep,
             float radius) noexcept {
    const std::optional<StationView> stations = stationsOf(n, lon, lat, value);
    if (!stations) return nullptr;
    return guarded<float*>(nullptr, [&] {
        const AreaRequest request{autoBounds != 0, {startLon, endLon, startLat, endLat}, lonStep, latStep};
        return spreadNearest(*stations, request, radius).release();
    });
}

float* barnes(float kappa, float radius, float gamma, int nx, int ny, int startLon, int endLon, int startLat,
              int endLat, int n, const float* lon, const float* lat, const float* value,
              float maskRadius) noexcept {
    const std::optional<StationView> stations = stationsOf(n, lon, lat, value);
    if (!stations) return nullptr;
    return guarded<float*>(nullptr, [&] {
        return analyseBarnes({kappa, radius, gamma}, {nx, ny}, {startLon, endLon, startLat, endLat},
                             *stations, maskRadius)
            .release();
    });
}

float* cressman(int nscan, const float* radii, int nx, int ny, float startLon, float endLon, float startLat,
                float endLat, int n, const float* lon, const float* lat, const float* value,
                float maskRadius) noexcept {
    const std::optional<StationView> stations = stationsOf(n, lon, lat, value);
    if (!stations || (radii == nullptr && nscan > 0)) return nullptr;
    const std::span<const float> scans(radii, static_cast<std::size_t>(std::max(nscan, 0)));
    return guarded<float*>(nullptr, [&] {
        return analyseCressman(scans, {nx, ny}, {startLon, endLon, startLat, endLat}, *stations, maskRadius)
            .release();
    });
}

float* gagexps(const float* grid, int nx, int ny, int fx, int fy, float undef) noexcept {
    const GridView coarse{grid, nx, ny};
    if (grid == nullptr || coarse.size() == 0 || fx < 1 || fy < 1) return nullptr;
    const auto refined = [](int lines, int factor) {
        return (static_cast<std::uint64_t>(lines) - 1) * static_cast<std::uint64_t>(factor) + 1;
    };
    return guarded<float*>(nullptr, [&]() -> float* {
        const std::uint64_t columns = refined(nx, fx);
        const std::uint64_t rows = refined(ny, fy);
        if (rows > std::numeric_limits<std::size_t>::max() / sizeof(float) / columns) return nullptr;
        ResultBlock fine = allocateBlock(static_cast<std::size_t>(columns * rows));
        refineInto(coarse, undef, {fx, fy}, CubicForm::descending, fine.get());
        return fine.release();
    });
}
