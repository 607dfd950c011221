#include "chart/layers/imageSampler.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "read/gridFile.h"

namespace velmar::tool {

ImageSampler::ImageSampler(const ByteImageFile& image)
    : image_(image),
      columnsRoundGlobe_(std::fabs(360.0 / image.lattice.longitudeStep)),
      wraps_(image.circlesGlobe()) {}

float ImageSampler::pixel(int column, int row) const {
    const grid::GridView grid = image_.grid.view();
    if (wraps_) column = (column + grid.nx) % grid.nx;
    return grid.at(std::clamp(column, 0, grid.nx - 1), std::clamp(row, 0, grid.ny - 1));
}

std::optional<float> ImageSampler::at(double longitude, double latitude) const {
    const grid::Lattice& lattice = image_.lattice;
    double x = (longitude - lattice.startLongitude) / lattice.longitudeStep;
    x -= columnsRoundGlobe_ * std::floor((x + 0.5) / columnsRoundGlobe_);
    const double y = (latitude - lattice.startLatitude) / lattice.latitudeStep;
    if (x >= image_.grid.nx - 0.5 && !wraps_) return std::nullopt;
    if (y < -0.5 || y >= image_.grid.ny - 0.5) return std::nullopt;

    const float nearest = pixel(static_cast<int>(std::floor(x + 0.5)), static_cast<int>(std::floor(y + 0.5)));
    if (!isPresent(nearest)) return std::nullopt;
    const int column = static_cast<int>(std::floor(x));
    const int row = static_cast<int>(std::floor(y));
    const std::array around{pixel(column, row), pixel(column + 1, row), pixel(column, row + 1),
                            pixel(column + 1, row + 1)};
    if (!std::ranges::all_of(around, isPresent)) return nearest;
    const auto alongRow = static_cast<float>(x - column);
    const auto alongColumn = static_cast<float>(y - row);
    return std::lerp(std::lerp(around[0], around[1], alongRow), std::lerp(around[2], around[3], alongRow),
                     alongColumn);
}

}  // namespace velmar::tool
