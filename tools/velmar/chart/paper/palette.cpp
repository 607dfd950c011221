#include "chart/paper/palette.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace velmar::tool {
namespace {

// Evenly spaced anchors. None is so dark that lines and letters on it could not be read, and none is grey.

constexpr Colour sequential[] = {{0.99, 0.98, 0.84}, {0.90, 0.95, 0.66}, {0.73, 0.88, 0.58},
                                 {0.50, 0.80, 0.62}, {0.34, 0.71, 0.72}, {0.34, 0.60, 0.80},
                                 {0.46, 0.49, 0.79}, {0.60, 0.39, 0.70}};

constexpr Colour diverging[] = {{0.47, 0.33, 0.69}, {0.30, 0.47, 0.80}, {0.40, 0.69, 0.90},
                                {0.70, 0.88, 0.95}, {0.96, 0.97, 0.94}, {1.00, 0.91, 0.62},
                                {0.99, 0.73, 0.38}, {0.92, 0.46, 0.27}, {0.73, 0.20, 0.22}};

// Of lines on white.
constexpr Colour strengths[] = {{0.50, 0.66, 0.86}, {0.20, 0.45, 0.82}, {0.00, 0.56, 0.62},
                                {0.16, 0.62, 0.22}, {0.72, 0.64, 0.00}, {0.93, 0.50, 0.05},
                                {0.84, 0.13, 0.13}, {0.72, 0.05, 0.50}, {0.42, 0.00, 0.48}};

/// The colour at a place from 0 to 1.
Colour colourAt(std::span<const Colour> anchors, double place) {
    const double last = static_cast<double>(anchors.size() - 1);
    const double position = std::clamp(place, 0.0, 1.0) * last;
    const double below = std::min(std::floor(position), last - 1);
    const double part = position - below;
    const Colour& a = anchors[static_cast<std::size_t>(below)];
    const Colour& b = anchors[static_cast<std::size_t>(below) + 1];
    return {a.red + part * (b.red - a.red), a.green + part * (b.green - a.green),
            a.blue + part * (b.blue - a.blue)};
}

/// Where zero lies, counted in bands: in the middle of one, or between two where zero is a level.
double zeroBand(const std::vector<float>& levels) {
    const auto zero = std::ranges::lower_bound(levels, 0.0F);
    const auto band = static_cast<double>(zero - levels.begin());
    return *zero == 0.0F ? band + 0.5 : band;
}

}  // namespace

std::vector<Colour> bandColours(const std::vector<float>& levels) {
    const auto last = static_cast<double>(levels.size());
    const bool aroundZero = !levels.empty() && levels.front() < 0 && levels.back() > 0;
    const double zero = aroundZero ? zeroBand(levels) : 0;
    const double reach = std::max({zero, last - zero, 1.0});
    std::vector<Colour> colours;
    for (std::size_t k = 0; k <= levels.size(); ++k) {
        const double steps = (static_cast<double>(k) - zero) / reach;
        colours.push_back(aroundZero ? colourAt(diverging, 0.5 + steps / 2) : colourAt(sequential, steps));
    }
    return colours;
}

std::vector<Colour> lineColours(std::size_t bands) {
    std::vector<Colour> colours;
    const auto last = static_cast<double>(std::max<std::size_t>(bands, 2) - 1);
    for (std::size_t k = 0; k < bands; ++k)
        colours.push_back(colourAt(strengths, static_cast<double>(k) / last));
    return colours;
}

}  // namespace velmar::tool
