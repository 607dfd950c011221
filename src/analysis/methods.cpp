#include "analysis/methods.h"

#include "analysis/cressman.h"
#include "base/numbers.h"

namespace velmar::analysis {

base::Floats runCressman(const AnalysisArea& area, const StationView& stations, float maskRadius) {
    return analyseCressman(cressmanRadii, area.size, area.bounds, stations, maskRadius);
}

base::Floats runBarnes(const BarnesParameters& parameters, const AnalysisArea& area,
                       const StationView& stations, float maskRadius) {
    const Bounds& b = area.bounds;
    const WholeBounds whole{base::truncateToInt(b.startLongitude), base::truncateToInt(b.endLongitude),
                            base::truncateToInt(b.startLatitude), base::truncateToInt(b.endLatitude)};
    return analyseBarnes(parameters, area.size, whole, stations, maskRadius);
}

}  // namespace velmar::analysis
