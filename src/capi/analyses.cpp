#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>

#include "analysis/barnes.h"
#include "analysis/cressman.h"
#include "capi/barrier.h"
#include "capi/stationSelection.h"
#include "grid/refine.h"
#include "velmarBaseA.h"

using namespace velmar;
using namespace velmar::capi;

float* barnes(float kappa, float radius, float gamma, int nx, int ny, int startLon, int endLon, int startLat,
              int endLat, int n, const float* lon, const float* lat, const float* value,
              float maskRadius) noexcept {
    const std::optional<analysis::StationView> stations = stationsOf(n, lon, lat, value);
    if (!stations) return nullptr;
    return guarded<float*>(nullptr, [&] {
        return analysis::analyseBarnes(barnesForHosts({kappa, radius, gamma}), {nx, ny},
                                       {startLon, endLon, startLat, endLat}, *stations, maskRadius)
            .release();
    });
}

float* cressman(int nscan, const float* radii, int nx, int ny, float startLon, float endLon, float startLat,
                float endLat, int n, const float* lon, const float* lat, const float* value,
                float maskRadius) noexcept {
    const std::optional<analysis::StationView> stations = stationsOf(n, lon, lat, value);
    if (!stations || (radii == nullptr && nscan > 0)) return nullptr;
    const std::span<const float> scans(radii, static_cast<std::size_t>(std::max(nscan, 0)));
    return guarded<float*>(nullptr, [&] {
        return analysis::analyseCressman(scans, {nx, ny}, {startLon, endLon, startLat, endLat}, *stations,
                                         maskRadius)
            .release();
    });
}

float* gagexps(const float* grid, int nx, int ny, int fx, int fy, float undef) noexcept {
    const grid::GridView coarse{grid, nx, ny};
    if (grid == nullptr || coarse.size() == 0 || fx < 1 || fy < 1) return nullptr;
    const auto refined = [](int lines, int factor) {
        return (static_cast<std::uint64_t>(lines) - 1) * static_cast<std::uint64_t>(factor) + 1;
    };
    return guarded<float*>(nullptr, [&]() -> float* {
        const std::uint64_t columns = refined(nx, fx);
        const std::uint64_t rows = refined(ny, fy);
        if (rows > std::numeric_limits<std::size_t>::max() / sizeof(float) / columns) return nullptr;
        ResultBlock fine = base::allocateFloats(static_cast<std::size_t>(columns * rows));
        grid::refineInto(coarse, undef, {fx, fy}, grid::CubicForm::descending, fine.get());
        return fine.release();
    });
}
