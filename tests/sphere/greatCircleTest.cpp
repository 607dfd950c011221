#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <set>

#include "velmarBaseA.h"

namespace {

struct Way {
    float bearing, angle, distance;
};

Way way(float lon1, float lat1, float lon2, float lat2) {
    Way result{};
    FJJS2(lon1, lat1, lon2, lat2, &result.bearing, &result.angle, &result.distance);
    return result;
}

constexpr double pi = std::numbers::pi;
constexpr double radius = 6371.11;

struct ExactWay {
    double bearing, angle;
};

/// In double precision, with the tangent of the angle, which is good for all angles (Vincenty 1975, on a sphere).
ExactWay exactWay(double lon1, double lat1, double lon2, double lat2) {
    const double l = (lon2 - lon1) * pi / 180;
    const double f1 = lat1 * pi / 180;
    const double f2 = lat2 * pi / 180;
    const double east = std::cos(f2) * std::sin(l);
    const double north = std::cos(f1) * std::sin(f2) - std::sin(f1) * std::cos(f2) * std::cos(l);
    const double along = std::sin(f1) * std::sin(f2) + std::cos(f1) * std::cos(f2) * std::cos(l);
    const double bearing = std::atan2(east, north);
    return {bearing < 0 ? bearing + 2 * pi : bearing, std::atan2(std::hypot(east, north), along)};
}

TEST(GreatCircles, OfSimpleWaysAreSimple) {
    EXPECT_EQ(way(5, 7, 5, 7).distance, 0);
    EXPECT_EQ(way(5, 7, 5, 7).bearing, 0);
    const Way east = way(0, 0, 1, 0);
    EXPECT_NEAR(east.bearing, pi / 2, 1e-6);
    EXPECT_NEAR(east.angle, 0.0174533, 2e-6);
    EXPECT_NEAR(east.distance, 111.2, 0.05);
    EXPECT_NEAR(way(0, 0, 0, 1).bearing, 0, 1e-6);
    EXPECT_NEAR(way(0, 1, 0, 0).bearing, pi, 1e-6);
    EXPECT_NEAR(way(179, 0, -179, 0).bearing, pi / 2, 1e-6);
    EXPECT_NEAR(way(-179, 0, 179, 0).bearing, 3 * pi / 2, 1e-6);
    EXPECT_NEAR(way(0, 0, 90, 0).angle, pi / 2, 1e-6);
    FJJS2(1, 2, 3, 4, nullptr, nullptr, nullptr);
}

TEST(GreatCircles, AreAsExactAsTheCosineAllows) {
    std::mt19937 random(52);
    std::uniform_real_distribution<float> lon(-180, 180), lat(-85, 85);
    for (int k = 0; k < 20000; ++k) {
        const float a[] = {lon(random), lat(random), lon(random), lat(random)};
        const ExactWay exact = exactWay(a[0], a[1], a[2], a[3]);
        const Way found = way(a[0], a[1], a[2], a[3]);
        // The cosine is wrong by some 1e-7, and the angle by that over its sine.
        const double sine = std::sin(exact.angle);
        if (sine < 0.02) continue;
        EXPECT_NEAR(found.angle, exact.angle, 8e-7 / sine) << k;
        EXPECT_NEAR(found.distance, exact.angle * radius, radius * 8e-7 / sine) << k;
        EXPECT_NEAR(std::remainder(found.bearing - exact.bearing, 2 * pi), 0, 3e-6 / sine) << k;
        EXPECT_TRUE(0 <= found.bearing && found.bearing < 6.28319F) << k;
    }
}

/// Their cosine is rounded to 1, to the last single below, or to above 1: only then it becomes that of 9 km.
TEST(GreatCircles, OfAlmostTheSamePlaceAreNotNothing) {
    std::set<long> metres;
    for (float lat = 10; lat < 60; lat += 0.037F)
        metres.insert(std::lround(way(30, lat, 30.0001F, lat).distance * 1000));
    EXPECT_EQ(metres, (std::set<long>{0, 2200, 9070}));
}

TEST(GreatCircles, AtPolesAndToTheOtherSideOfTheEarthDoNotFail) {
    for (const float lat : {90.0F, -90.0F}) EXPECT_TRUE(std::isfinite(way(10, lat, 50, 20).distance));
    int missing = 0;
    for (float lat = 1; lat < 60; lat += 0.37F)
        missing += std::isnan(way(30, lat, -150, -lat).distance) ? 1 : 0;
    EXPECT_GT(missing, 0);
}

}  // namespace
