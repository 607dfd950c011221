#include "compute/analysisGrid.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "common/text.h"

namespace velmar::tool {
namespace {

constexpr double circle = 360;
/// More points than this are a slip in the steps.
constexpr int mostPoints = 4'000'000;

/// The shortest stretch that holds all longitudes: what is left of the circle without its widest gap. It
/// begins with a longitude as it stands in the list, negative or not.
LongitudeRange shortestRange(std::span<const float> longitudes) {
    struct StationLongitude {
        double onCircle;
        double listed;
    };
    std::vector<StationLongitude> places;
    for (const double longitude : longitudes)
        places.push_back({longitude - circle * std::floor(longitude / circle), longitude});
    std::ranges::sort(places, {}, &StationLongitude::onCircle);
    double widestGap = -1;
    double west = 0;
    for (std::size_t k = 0; k < places.size(); ++k) {
        const double before = k > 0 ? places[k - 1].onCircle : places.back().onCircle - circle;
        const double gap = places[k].onCircle - before;
        if (gap <= widestGap) continue;
        widestGap = gap;
        west = places[k].listed;
    }
    return {west, west + circle - widestGap};
}

GeoBox widened(const GeoBox& bounds) {
    return {std::floor(bounds.west), std::ceil(bounds.east), std::floor(bounds.south),
            std::ceil(bounds.north)};
}

/// Steps of at most half the mean distance of the stations, and some twenty along the longer side at least.
GridSteps customarySteps(const GeoBox& bounds, std::size_t stations) {
    constexpr std::array customary{1.0, 0.5, 0.25, 0.1, 0.05, 0.025, 0.01, 0.005};
    const double middle = (bounds.south + bounds.north) / 2 * std::numbers::pi / 180;
    const double width = bounds.east - bounds.west;
    const double height = bounds.north - bounds.south;
    const double area = width * std::cos(middle) * height;
    const double most =
        std::min(std::sqrt(area / static_cast<double>(stations)) / 2, std::max(width, height) / 20);
    const auto step = std::ranges::find_if(customary, [&](double candidate) { return candidate <= most; });
    const double chosen = step != customary.end() ? *step : customary.back();
    return {chosen, chosen};
}

/// Columns or rows of about this step.
int countLines(double start, double end, double step, std::string_view what) {
    const double steps = std::round((end - start) / step);
    if (steps < 1)
        throw Problem(fmt::format("a step of {} is too wide for {} from {} to {}", plainNumber(step), what,
                                  plainNumber(start), plainNumber(end)));
    return static_cast<int>(std::min(steps, 1.0 * mostPoints)) + 1;
}

std::string boundsText(const GeoBox& bounds) {
    return fmt::format("{},{},{},{}", plainNumber(bounds.west), plainNumber(bounds.east),
                       plainNumber(bounds.south), plainNumber(bounds.north));
}

}  // namespace

GeoBox boundsRound(const analysis::StationView& stations) {
    constexpr double margin = 1;
    const auto [west, east] = shortestRange(stations.longitudes);
    const auto [south, north] = std::ranges::minmax(stations.latitudes);
    const double start = std::floor(west - margin);
    return {start, std::min(std::ceil(east + margin), start + circle),
            std::max(std::floor(south - margin), -90.0), std::min(std::ceil(north + margin), 90.0)};
}

GridPlan planGrid(const GridRequest& request, const analysis::StationView& stations) {
    const GeoBox asked = request.bounds.value_or(boundsRound(stations));
    const GeoBox bounds = request.wholeDegrees ? widened(asked) : asked;
    const GridSteps steps = request.steps.value_or(customarySteps(bounds, stations.count()));
    GridPlan plan{{},
                  countLines(bounds.west, bounds.east, steps.longitude, "longitudes"),
                  countLines(bounds.south, bounds.north, steps.latitude, "latitudes"),
                  {}};
    if (1.0 * plan.nx * plan.ny > mostPoints)
        throw Problem(fmt::format("steps of {} and {} give the grid more than {} points",
                                  plainNumber(steps.longitude), plainNumber(steps.latitude), mostPoints));
    plan.lattice = {.startLongitude = static_cast<float>(bounds.west),
                    .endLongitude = static_cast<float>(bounds.east),
                    .longitudeStep = static_cast<float>((bounds.east - bounds.west) / (plan.nx - 1)),
                    .startLatitude = static_cast<float>(bounds.south),
                    .endLatitude = static_cast<float>(bounds.north),
                    .latitudeStep = static_cast<float>((bounds.north - bounds.south) / (plan.ny - 1))};
    if (boundsText(bounds) != boundsText(asked))
        plan.notice = fmt::format("its bounds were widened to whole degrees: {}", boundsText(bounds));
    return plan;
}

analysis::Stations broughtTo(const grid::Lattice& lattice, const analysis::StationView& stations) {
    const double middle = (static_cast<double>(lattice.startLongitude) + lattice.endLongitude) / 2;
    analysis::Stations brought;
    for (std::size_t k = 0; k < stations.count(); ++k) {
        const double longitude = stations.longitudes[k];
        const double circles = std::round((middle - longitude) / circle);
        brought.add(static_cast<float>(longitude + circle * circles), stations.latitudes[k],
                    stations.values[k]);
    }
    return brought;
}

}  // namespace velmar::tool
