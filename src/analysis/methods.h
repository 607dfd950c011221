#pragma once

#include <array>

#include "analysis/area.h"
#include "analysis/barnes.h"
#include "analysis/cressman.h"
#include "analysis/stations.h"
#include "base/floats.h"
#include "base/numbers.h"

namespace velmar::analysis {

/// How station files are analysed; hosts pass the number.
enum class Method : int { cressman = 0, barnes = 1 };

/// Influence radii of Cressman's scans, in grid lengths.
inline constexpr std::array cressmanRadii{25.0F, 10.0F, 5.0F, 2.0F, 1.0F};

/// Barnes's parameters.
inline constexpr BarnesParameters barnesParameters{.kappa = 0.25F, .radius = 20.0F, .gamma = 0.3F};

/// The analyses with the parameters that station files get. Null without a grid.
inline base::Floats runCressman(const AnalysisArea& area, const StationView& stations, float maskRadius) {
    return analyseCressman(cressmanRadii, area.size, area.bounds, stations, maskRadius);
}

/// The bounds are cut to whole degrees.
inline base::Floats runBarnes(const BarnesParameters& parameters, const AnalysisArea& area,
                              const StationView& stations, float maskRadius) {
    const base::LonLatBox& b = area.bounds;
    const WholeLonLatBox whole{base::truncateToInt(b.west), base::truncateToInt(b.east),
                               base::truncateToInt(b.south), base::truncateToInt(b.north)};
    return analyseBarnes(parameters, area.size, whole, stations, maskRadius);
}

}  // namespace velmar::analysis
