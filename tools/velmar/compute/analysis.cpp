#include "compute/analysis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "analysis/cressman.h"
#include "analysis/methods.h"
#include "analysis/nearestStation.h"
#include "base/floats.h"
#include "common/text.h"

namespace velmar::tool {
namespace {

using analysis::Stations;
using analysis::StationView;

/// What the analyses of the library put where there is no data.
constexpr float withoutData = -9999.0F;

grid::GridPlace placeOf(const GridPlan& plan) { return plan.lattice.place(); }

std::vector<int> nearestTo(const GridPlan& plan, const StationView& stations, float radius) {
    std::vector<int> nearest(grid::valueCount(plan.nx, plan.ny));
    findNearestStations(
        placeOf(plan), {plan.nx, plan.ny}, stations, radius, analysis::Reach::distance,
        [&](std::size_t firstPoint, auto found) { std::ranges::copy(found, &nearest[firstPoint]); });
    return nearest;
}

base::Floats analyseByBarnes(const GridPlan& plan, const StationView& stations, float maskRadius) {
    const auto whole = [](float degrees) { return static_cast<int>(std::lround(degrees)); };
    const grid::Lattice& lattice = plan.lattice;
    base::Floats grid = analysis::analyseBarnes(analysis::barnesParameters, {plan.nx, plan.ny},
                                                {whole(lattice.startLongitude), whole(lattice.endLongitude),
                                                 whole(lattice.startLatitude), whole(lattice.endLatitude)},
                                                stations, maskRadius);
    // The first guess of points that no station reaches is 0, which is a value like any other.
    const std::vector<int> nearest = nearestTo(plan, stations, analysis::barnesParameters.radius);
    for (std::size_t k = 0; k < nearest.size(); ++k)
        if (nearest[k] < 0) grid[k] = withoutData;
    return grid;
}

base::Floats analyseByCressman(const GridPlan& plan, const StationView& stations, float maskRadius) {
    // The first guess is the sum of all values, which takes digits from what the scans make of it. The sum of
    // deviations from the mean is near 0.
    const double sum = std::accumulate(stations.values.begin(), stations.values.end(), 0.0);
    const auto mean = static_cast<float>(sum / static_cast<double>(stations.count()));
    std::vector<float> deviations;
    for (const float value : stations.values) deviations.push_back(value - mean);
    const grid::Lattice& lattice = plan.lattice;
    base::Floats grid = analysis::analyseCressman(
        analysis::cressmanRadii, {plan.nx, plan.ny},
        {lattice.startLongitude, lattice.endLongitude, lattice.startLatitude, lattice.endLatitude},
        {stations.longitudes, stations.latitudes, deviations}, maskRadius);
    if (!grid) throw Problem("its values cannot be analysed");
    for (float& value : std::span(grid.get(), grid::valueCount(plan.nx, plan.ny)))
        if (value != withoutData) value += mean;
    return grid;
}

base::Floats analyseByNearest(const GridPlan& plan, const StationView& stations, float maskRadius) {
    constexpr float anywhere = 1000;
    const std::vector<int> nearest = nearestTo(plan, stations, maskRadius > 0 ? maskRadius : anywhere);
    base::Floats grid = base::allocateFloats(nearest.size());
    std::ranges::transform(nearest, grid.get(), [&](int k) {
        return k < 0 ? withoutData : stations.values[static_cast<std::size_t>(k)];
    });
    return grid;
}

bool anyInside(const grid::Lattice& lattice, const StationView& stations) {
    for (std::size_t k = 0; k < stations.count(); ++k)
        if (stations.longitudes[k] >= lattice.startLongitude &&
            stations.longitudes[k] <= lattice.endLongitude &&
            stations.latitudes[k] >= lattice.startLatitude && stations.latitudes[k] <= lattice.endLatitude)
            return true;
    return false;
}

}  // namespace

base::Floats analyseStations(AnalysisMethod method, const GridPlan& plan, const StationView& stations,
                             float maskRadius) {
    const Stations brought = broughtTo(plan.lattice, stations);
    if (!anyInside(plan.lattice, brought.view()))
        throw Problem("no station with a value lies within the bounds");
    constexpr std::array methods{analyseByBarnes, analyseByCressman, analyseByNearest};
    base::Floats grid = methods[static_cast<std::size_t>(method)](plan, brought.view(), maskRadius);
    std::ranges::replace(std::span(grid.get(), grid::valueCount(plan.nx, plan.ny)), withoutData,
                         grid::missingInFiles);
    return grid;
}

}  // namespace velmar::tool
