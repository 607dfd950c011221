#pragma once

#include <optional>
#include <string>

#include "analysis/stations.h"
#include "read/gridFile.h"

namespace velmar::tool {

/// Distances of a grid's columns and rows, degrees.
struct GridSteps {
    double longitude;
    double latitude;
};

/// The grid that the user asked for.
struct GridRequest {
    std::optional<GeoBox> bounds;    ///< those of the stations, and a degree more on each side, when not set
    std::optional<GridSteps> steps;  ///< chosen by the distance of the stations when not set
    bool wholeDegrees = false;       ///< whether the bounds must be whole numbers; they are widened to be so
};

/// A grid to be filled.
struct GridPlan {
    grid::Lattice lattice;
    int nx;
    int ny;
    std::string notice;  ///< how it differs from what was asked for; empty when it does not
};

/// The area of stations, of which there must be one, and a degree or two more on each side, in whole degrees.
/// Stations on both sides of Greenwich or of the date line are brought together.
GeoBox boundsRound(const analysis::StationView& stations);

/// Plans the grid of an analysis. Steps are fitted so that they divide the bounds. A Problem when they do not
/// fit at all, or would give too many points.
GridPlan planGrid(const GridRequest& request, const analysis::StationView& stations);

/// The stations, moved by whole circles to be as near to the middle of the grid as can be.
analysis::Stations broughtTo(const grid::Lattice& lattice, const analysis::StationView& stations);

}  // namespace velmar::tool
