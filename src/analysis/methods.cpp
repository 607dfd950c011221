#include "analysis/methods.h"

#include "analysis/cressman.h"
#include "frame/numbers.h"

namespace velmar::analysis {

frame::ResultBlock runCressman(const AnalysisArea& area, const StationView& stations, float maskRadius) {
    return analyseCressman(cressmanRadii, area.size, area.bounds, stations, maskRadius);
}

frame::ResultBlock runBarnes(float radius, const AnalysisArea& area, const StationView& stations,
                             float maskRadius) {
    const Bounds& b = area.bounds;
    const WholeBounds whole{frame::truncateToInt(b.startLongitude), frame::truncateToInt(b.endLongitude),
                            frame::truncateToInt(b.startLatitude), frame::truncateToInt(b.endLatitude)};
    return analyseBarnes({barnesParameters.kappa, radius, barnesParameters.gamma}, area.size, whole, stations,
                         maskRadius);
}

}  // namespace velmar::analysis
