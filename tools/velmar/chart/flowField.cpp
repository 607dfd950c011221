#include "chart/flowField.h"

#include <algorithm>
#include <cmath>

namespace velmar::tool {
namespace {

double gridLengthOnPaper(const WindGrid& file, const MapFrame& map) {
    return std::fabs(map.toPaper(file.header.lattice.longitudeStep, 0).x - map.toPaper(0, 0).x);
}

/// So many grid lengths become one.
int strideFor(const WindGrid& file, const MapFrame& map) {
    constexpr double leastGridLength = 5;  // on paper
    constexpr int leastSize = 8;
    const int most = std::max(1, std::min(file.u.nx, file.u.ny) / leastSize);
    const double wanted = std::round(leastGridLength / gridLengthOnPaper(file, map));
    int stride = static_cast<int>(std::clamp<double>(wanted, 1, most));
    // Round the globe the steps must come out even.
    while (circlesGlobe(file.header) && file.u.nx % stride != 0) --stride;
    return stride;
}

/// Steps to the east from the first column to that of the new seam, half way round between the map's edges.
int stepsToSeam(const grid::Lattice& lattice, const GeoBox& shown) {
    constexpr double tolerance = 1e-3;
    const double seam = shown.west - (360 - (shown.east - shown.west)) / 2;
    return static_cast<int>(std::floor((seam - lattice.startLongitude) / lattice.longitudeStep + tolerance));
}

}  // namespace

WindGrid flowField(const WindGrid& file, const MapFrame& map) {
    const bool circles = circlesGlobe(file.header);
    const int first = circles ? stepsToSeam(file.header.lattice, map.bounds) : 0;
    const int stride = strideFor(file, map);
    WindGrid field{.header = file.header, .title = {}, .titleBytes = {}, .storage = {}, .u = {}, .v = {}};
    field.header.nx = (file.u.nx - 1) / stride + 1;
    field.header.ny = (file.u.ny - 1) / stride + 1;
    grid::Lattice& lattice = field.header.lattice;
    lattice.startLongitude += static_cast<float>(first) * lattice.longitudeStep;
    lattice.longitudeStep *= static_cast<float>(stride);
    lattice.latitudeStep *= static_cast<float>(stride);
    lattice.endLongitude =
        lattice.startLongitude + static_cast<float>(field.header.nx - 1) * lattice.longitudeStep;
    lattice.endLatitude =
        lattice.startLatitude + static_cast<float>(field.header.ny - 1) * lattice.latitudeStep;

    const int start = (first % file.u.nx + file.u.nx) % file.u.nx;
    const auto thinned = [&](const grid::GridView& from) {
        grid::Grid grid{.values = {}, .nx = field.header.nx, .ny = field.header.ny};
        grid.values.reserve(grid.view().size());
        for (int row = 0; row < from.ny; row += stride)
            for (int column = 0; column < from.nx; column += stride)
                grid.values.push_back(from.at((start + column) % from.nx, row));
        return grid;
    };
    field.storage = std::make_unique<std::array<grid::Grid, 2>>(std::array{thinned(file.u), thinned(file.v)});
    field.u = (*field.storage)[0].view();
    field.v = (*field.storage)[1].view();
    return field;
}

int densityFor(const WindGrid& field, const MapFrame& map) {
    constexpr int mostDensity = 14;
    constexpr double wantedDistance = 15;  // on paper
    const double gridLength = gridLengthOnPaper(field, map);
    const int size = std::max(field.u.nx + (circlesGlobe(field.header) ? 1 : 0), field.u.ny);
    // How far the distance of lines is from the wanted one, as a ratio. Lines start so many cells from others.
    const auto misfit = [&](int density) {
        const int cells = std::clamp(200 / size + density - 5, 1, 10);
        const int apart = density < 5 ? 3 : density == 5 ? 2 : 1;
        return std::fabs(std::log(gridLength * apart / cells / wantedDistance));
    };
    int best = 1;
    for (int density = 2; density <= mostDensity; ++density)
        if (misfit(density) < misfit(best)) best = density;
    return best;
}

}  // namespace velmar::tool
