#include "analysis/methods.h"

#include <array>

#include "analysis/barnes.h"
#include "analysis/cressman.h"
#include "frame/numbers.h"

namespace velmar::analysis {

frame::ResultBlock runCressman(const AnalysisArea& area, const StationView& stations, float maskRadius) {
    constexpr std::array radii{25.0F, 10.0F, 5.0F, 2.0F, 1.0F};  // grid lengths
    return analyseCressman(radii, area.size, area.bounds, stations, maskRadius);
}

frame::ResultBlock runBarnes(float radius, const AnalysisArea& area, const StationView& stations,
                             float maskRadius) {
    const Bounds& b = area.bounds;
    const WholeBounds whole{frame::truncateToInt(b.startLongitude), frame::truncateToInt(b.endLongitude),
                            frame::truncateToInt(b.startLatitude), frame::truncateToInt(b.endLatitude)};
    return analyseBarnes({.kappa = 0.25F, .radius = radius, .gamma = 0.3F}, area.size, whole, stations,
                         maskRadius);
}

}  // namespace velmar::analysis
