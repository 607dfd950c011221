#include <gtest/gtest.h>

#include <cmath>

#include "base/elementary.h"
#include "support/fields.h"
#include "support/files.h"

namespace {

using namespace velmar;
using namespace velmar::test;

constexpr float missing = 9999;

struct Place {
    float startLon, startLat, lonStep, latStep;
};

using Kernel = decltype(&hdiv);

std::vector<float> computed(Kernel kernel, const std::vector<float>& p, const std::vector<float>& q, int nx,
                            const Place& at) {
    const auto ny = static_cast<int>(p.size()) / nx;
    const Block block(
        kernel(p.data(), q.data(), nx, ny, missing, at.startLon, at.startLat, at.lonStep, at.latStep));
    EXPECT_NE(block, nullptr);
    return {block.get(), block.get() + p.size()};
}

float radians(int k, float step, float start) {
    return static_cast<float>(std::fma(static_cast<float>(k), step, start) * (3.1416 / 180));
}

/// One point at a time.
std::vector<float> plain(bool sum, const std::vector<float>& p, const std::vector<float>& q, int nx,
                         const Place& at) {
    std::vector<float> out(p.size(), missing);
    const int ny = static_cast<int>(p.size()) / nx;
    const auto lambda = [&](int i) -> double { return radians(i, at.lonStep, at.startLon); };
    const auto phi = [&](int j) -> double { return radians(j, at.latStep, at.startLat); };
    for (int j = 1; j < ny - 1; ++j) {
        for (int i = 1; i < nx - 1; ++i) {
            const auto k = static_cast<std::size_t>(j * nx + i);
            const float west = p[k - 1];
            const float east = p[k + 1];
            const float south = q[k - static_cast<std::size_t>(nx)];
            const float north = q[k + static_cast<std::size_t>(nx)];
            if (west == missing || south == missing || east == missing || north == missing) continue;
            const auto dP = static_cast<float>((static_cast<double>(east) - static_cast<double>(west)) /
                                               (lambda(i + 1) - lambda(i - 1)));
            const double dQ = (base::cosine(phi(j + 1)) * north - base::cosine(phi(j - 1)) * south) /
                              (phi(j + 1) - phi(j - 1));
            const auto s = static_cast<float>(sum ? dP + dQ : dP - dQ);
            const float d = static_cast<float>(base::cosine(phi(j))) * 6370000.0F;
            if (d > 1e-10) out[k] = s / d;
        }
    }
    return out;
}

TEST(Differences, AreThoseOfThePlainWay) {
    std::mt19937 random(63);
    for (int round = 0; round < 60; ++round) {
        const int nx = 1 + static_cast<int>(random() % 40);
        const int ny = 1 + static_cast<int>(random() % 20);
        const auto p = round % 2 == 0 ? smoothField(random, nx, ny) : steppedField(random, nx, ny, 9, 12);
        const auto q = round % 2 == 0 ? smoothField(random, nx, ny) : steppedField(random, nx, ny, 9, 12);
        const Place at{static_cast<float>(random() % 360), -90, round % 3 == 0 ? -0.1F : 1.7F,
                       round % 5 == 0 ? 10.0F : 2.5F};
        ASSERT_EQ(computed(hdiv, p, q, nx, at), plain(true, p, q, nx, at)) << "round " << round;
        ASSERT_EQ(computed(hvor, p, q, nx, at), plain(false, p, q, nx, at)) << "round " << round;
    }
}

TEST(Differences, OfKnownWindsAreKnown) {
    constexpr int nx = 9;
    constexpr int ny = 7;
    const Place at{100, 30, 1, 1};
    const std::vector<float> steady(nx * ny, 8.0F);
    const std::vector<float> none(nx * ny, 0.0F);
    EXPECT_EQ(computed(hdiv, steady, none, nx, at)[nx + 1], 0.0F);

    // An earth that turns as a whole: u = U cos lat, with the vorticity 2 U sin lat / a.
    std::vector<float> turning;
    for (int k = 0; k < nx * ny; ++k)
        turning.push_back(40 * std::cos(radians(k / nx, at.latStep, at.startLat)));
    const auto vorticity = computed(hvor, none, turning, nx, at);
    const auto divergence = computed(hdiv, turning, none, nx, at);
    for (int j = 1; j < ny - 1; ++j) {
        const auto k = static_cast<std::size_t>(j * nx + 4);
        EXPECT_NEAR(vorticity[k], 2 * 40 * std::sin(radians(j, 1, 30)) / 6.37e6F, 1e-8F);
        EXPECT_EQ(divergence[k], 0.0F);
    }
}

TEST(Differences, AreMissingAtEdgesAtPolesAndBesideMissingPoints) {
    std::vector<float> p(25, 1.0F);
    const std::vector<float> q(25, 2.0F);
    const auto present = [](const std::vector<float>& field) {
        std::vector<int> at;
        for (int k = 0; k < static_cast<int>(field.size()); ++k)
            if (field[static_cast<std::size_t>(k)] != missing) at.push_back(k);
        return at;
    };
    EXPECT_EQ(present(computed(hdiv, p, q, 5, {0, 0, 1, 1})), (std::vector{6, 7, 8, 11, 12, 13, 16, 17, 18}));
    // The cosine of 90 degrees is a little below 0 with this pi.
    EXPECT_EQ(present(computed(hvor, p, q, 5, {0, 88, 1, 1})), (std::vector{6, 7, 8}));
    p[11] = missing;  // east and west of it, but not itself
    EXPECT_EQ(present(computed(hdiv, p, q, 5, {0, 0, 1, 1})), (std::vector{6, 7, 8, 11, 13, 16, 17, 18}));
    const std::vector<float> narrow(10, 1.0F);
    EXPECT_TRUE(present(computed(hdiv, narrow, narrow, 5, {0, 0, 1, 1})).empty());
    EXPECT_TRUE(present(computed(hdiv, narrow, narrow, 2, {0, 0, 1, 1})).empty());
}

TEST(Differences, LeaveTheOutputOfTheirOtherFormAlone) {
    const std::vector<float> wind(9, 1.0F);
    std::vector<float> out(9, 7.0F);
    EXPECT_EQ(ffhdiv(out.data(), wind.data(), wind.data(), 3, 3, missing, 0, 0, 1, 1), 0);
    EXPECT_EQ(ffhvor(out.data(), wind.data(), wind.data(), 3, 3, missing, 0, 0, 1, 1), 0);
    EXPECT_EQ(out, std::vector<float>(9, 7.0F));
}

TEST(Differences, NeedTheirGrids) {
    const float value = 1;
    EXPECT_EQ(hdiv(nullptr, &value, 1, 1, missing, 0, 0, 1, 1), nullptr);
    EXPECT_EQ(hvor(&value, nullptr, 1, 1, missing, 0, 0, 1, 1), nullptr);
    EXPECT_EQ(hdiv(&value, &value, 0, 1, missing, 0, 0, 1, 1), nullptr);
    EXPECT_EQ(hvor(&value, &value, 1, -1, missing, 0, 0, 1, 1), nullptr);
}

}  // namespace
