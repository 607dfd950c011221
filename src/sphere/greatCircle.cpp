#include "sphere/greatCircle.h"

#include <cmath>

#include "base/elementary.h"

namespace velmar::sphere {
namespace {

// Single precision, as they are used.
constexpr float radiansPerDegree = 0.017453292F;
constexpr float pi = 3.1415927F;
constexpr float twoPi = 6.2831855F;
constexpr float halfPi = 1.5707964F;
constexpr float threeHalvesOfPi = 4.712389F;
constexpr float earthRadius = 6371110.0F;  // metres

float radians(float degrees) { return degrees * radiansPerDegree; }

/// From -pi to pi.
float longitudeDifference(float from, float to) {
    float difference = radians(to) - radians(from);
    if (difference > pi) difference -= twoPi;
    if (difference < -pi) difference += twoPi;
    return difference;
}

/// The angle with a cosine, which may have been rounded to beyond 1.
float angleOf(float& cosine) {
    const double squaredSine = 1.0 - static_cast<double>(cosine) * static_cast<double>(cosine);
    constexpr double almost = 1.0e-6;
    // Places that are nearly the same: the cosine is deliberately set to that of a small angle, not to 1.
    if (squaredSine < 0 && std::fabs(static_cast<double>(cosine) - 1.0) <= almost)
        cosine = 0.999999F;
    else if (cosine == 0.0F)
        return halfPi;
    const double c = cosine;
    const auto angle = static_cast<float>(base::arcTangent(std::sqrt(1.0 - c * c) / c));
    return c < 0 ? angle + pi : angle;
}

/// An angle's sine and cosine, each rounded to single.
struct SineAndCosine {
    float sine;
    float cosine;

    explicit SineAndCosine(float angle)
        : sine(static_cast<float>(base::sine(static_cast<double>(angle)))),
          cosine(static_cast<float>(base::cosine(static_cast<double>(angle)))) {}
};

/// The bearing from its eastward and northward terms.
float bearingOf(float eastward, float northward, bool isWestward) {
    constexpr double none = 1.0e-16;
    if (std::fabs(static_cast<double>(northward)) < none) return isWestward ? threeHalvesOfPi : halfPi;
    auto bearing =
        static_cast<float>(base::arcTangent(static_cast<double>(eastward) / static_cast<double>(northward)));
    if (northward < 0) bearing += pi;
    return bearing < 0 ? bearing + twoPi : bearing;
}

}  // namespace

GreatCircle greatCircle(base::LonLat from, base::LonLat to) {
    if (from.longitude == to.longitude && from.latitude == to.latitude) return {0, 0, 0};
    const float difference = longitudeDifference(from.longitude, to.longitude);
    const SineAndCosine longitude(difference);
    const SineAndCosine start(radians(from.latitude));
    const SineAndCosine end(radians(to.latitude));
    const auto product = [](float a, float b) { return static_cast<double>(a) * static_cast<double>(b); };
    auto cosine =
        static_cast<float>(product(longitude.cosine, end.cosine) * static_cast<double>(start.cosine) +
                           product(end.sine, start.sine));
    const float angle = angleOf(cosine);
    const auto eastward = static_cast<float>(product(longitude.sine, end.cosine));
    const auto northward = static_cast<float>((static_cast<double>(end.sine) - product(cosine, start.sine)) /
                                              static_cast<double>(start.cosine));
    const float metres = angle * earthRadius;
    return {bearingOf(eastward, northward, difference < 0), angle, metres / 1000.0F};
}

}  // namespace velmar::sphere
