#include "compute/windQuantity.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "base/floats.h"
#include "wind/derivatives.h"

namespace velmar::tool {
namespace {

base::Floats speeds(const WindGrid& file) {
    base::Floats values = base::allocateFloats(file.u.size());
    std::transform(file.u.values, file.u.values + file.u.size(), file.v.values, values.get(), windSpeed);
    return values;
}

base::Floats derivative(WindQuantity quantity, const grid::GridView& u, const grid::GridView& v,
                        const grid::Lattice& lattice) {
    const grid::GridPlace place = lattice.place();
    if (quantity == WindQuantity::divergence)
        return wind::differentiate({u, v, grid::missingInFiles}, place, wind::WindDerivative::divergence);
    return wind::differentiate({v, u, grid::missingInFiles}, place, wind::WindDerivative::vorticity);
}

/// The two columns on each side of the seam, from west to east.
constexpr int seamColumns = 4;

grid::Grid seamStrip(const grid::GridView& grid) {
    grid::Grid strip{{}, seamColumns, grid.ny};
    strip.values.reserve(strip.view().size());
    for (int row = 0; row < grid.ny; ++row)
        for (int column = 0; column < seamColumns; ++column)
            strip.values.push_back(grid.at((column + 2 * grid.nx - 2) % grid.nx, row));
    return strip;
}

/// The library's derivatives are missing on the edges of a grid; on a seam that is no edge they are put in.
void fillSeam(WindQuantity quantity, const WindGrid& file, float* values) {
    const grid::Grid u = seamStrip(file.u);
    const grid::Grid v = seamStrip(file.v);
    const base::Floats strip = derivative(quantity, u.view(), v.view(), file.header.lattice);
    for (int row = 0; row < file.u.ny; ++row) {
        const float* const across = strip.get() + static_cast<std::ptrdiff_t>(seamColumns) * row;
        values[file.u.nx - 1] = across[1];
        values[0] = across[2];
        values += file.u.nx;
    }
}

base::Floats computed(WindQuantity quantity, const WindGrid& file) {
    if (quantity == WindQuantity::speed) return speeds(file);
    base::Floats values = derivative(quantity, file.u, file.v, file.header.lattice);
    if (circlesGlobe(file.header)) fillSeam(quantity, file, values.get());
    return values;
}

/// Brings values into their unit. One that is too large for a float, as where a step is 0, is missing.
void scaleValues(float* values, std::size_t count, float scale) {
    std::transform(values, values + count, values, [=](float value) {
        if (value == grid::missingInFiles) return value;
        const float scaled = value * scale;
        return std::isfinite(scaled) ? scaled : grid::missingInFiles;
    });
}

/// A size that few values exceed, one in `share`.
float customarySize(const grid::GridView& values, std::size_t share) {
    std::vector<float> sizes;
    sizes.reserve(values.size());
    std::for_each(values.values, values.values + values.size(), [&](float value) {
        if (isPresent(value) && value != 0) sizes.push_back(std::fabs(value));
    });
    if (sizes.empty()) return 0;
    const auto place = sizes.end() - 1 - static_cast<std::ptrdiff_t>(sizes.size() / share);
    std::ranges::nth_element(sizes, place);
    return *place;
}

/// The largest of 1, 2, 5, 10, 20 ... and their tenths that is not above a number.
double roundedDown(double number) {
    const double power = std::pow(10.0, std::floor(std::log10(number)));
    for (const double digit : {5.0, 2.0})
        if (number >= digit * power) return digit * power;
    return power;
}

/// `leastLevels` levels or somewhat more up to a size.
void setLevels(files::GridHeader& header, double size, int leastLevels) {
    if (!(size > 0)) return;
    const double interval = roundedDown(size / leastLevels);
    header.interval = static_cast<float>(interval);
    header.endValue = static_cast<float>(std::floor(size / interval)) * header.interval;
}

void setLevels(files::GridHeader& header, const grid::GridView& values, WindQuantity quantity) {
    if (quantity == WindQuantity::speed)
        return setLevels(header, customarySize(values, values.size() + 1), 8);
    // The largest derivatives stand beside the poles and would make all others one band.
    setLevels(header, customarySize(values, 50), 4);
    header.startValue = 0 - header.endValue;
}

}  // namespace

std::string_view quantityName(WindQuantity quantity) {
    constexpr std::array<std::string_view, 3> names{"speed", "divergence", "vorticity"};
    return names.at(static_cast<std::size_t>(quantity));
}

GridFile windQuantity(const WindGrid& file, WindQuantity quantity, float scale) {
    const std::string suffix = fmt::format("_{}", quantityName(quantity));
    GridFile grid{.header = {},
                  .title = file.title + suffix,
                  .titleBytes = file.titleBytes + suffix,
                  .storage = computed(quantity, file),
                  .values = {}};
    grid.values = {.values = grid.storage.get(), .nx = file.u.nx, .ny = file.u.ny};
    scaleValues(grid.storage.get(), grid.values.size(), scale);
    grid.header.field = file.header;
    setLevels(grid.header, grid.values, quantity);
    return grid;
}

}  // namespace velmar::tool
