#include "base/elementary.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "capi/state.h"
#include "support/files.h"
#include "support/ownFolder.h"

namespace {

using namespace velmar;
using namespace velmar::test;

#if !defined(_WIN32)  // the C library there is less exact than what is tested
TEST(ElementaryFunctions, AreOffByLessThanAUnitInTheLastPlace) {
    std::mt19937_64 random(3);
    struct Function {
        double (*tested)(double);
        long double (*reference)(long double);
        double from, to;
    };
    const double huge = 1e30;
    for (const auto& [tested, reference, from, to] : {Function{base::exponential, expl, -745, 709},
                                                      {base::exponential, expl, -1, 1},
                                                      {base::logarithm, logl, 0, 2},
                                                      {base::logarithm, logl, 0, huge},
                                                      {base::sine, sinl, -4, 4},
                                                      {base::cosine, cosl, -4, 4},
                                                      {base::sine, sinl, -4000, 4000},
                                                      {base::cosine, cosl, -huge, huge},
                                                      {base::arcTangent, atanl, -8, 8},
                                                      {base::arcTangent, atanl, -huge, huge}}) {
        for (int round = 0; round < 20000; ++round) {
            const double x = std::uniform_real_distribution<double>(from, to)(random);
            const long double expected = reference(x);
            const double size = std::fabs(static_cast<double>(expected));
            const double unit = std::nextafter(size, HUGE_VAL) - size;
            ASSERT_LT(std::fabs(tested(x) - expected), unit) << x << " from " << from << " to " << to;
        }
    }
}
#endif

TEST(ElementaryFunctions, HaveTheirLimits) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(base::exponential(0), 1);
    EXPECT_EQ(base::exponential(-746), 0);
    EXPECT_EQ(base::exponential(710), infinity);
    EXPECT_EQ(base::logarithm(1), 0);
    EXPECT_EQ(base::logarithm(0), -infinity);
    EXPECT_EQ(base::logarithm(infinity), infinity);
    EXPECT_EQ(base::logarithm(0x1p-1074), -1074 * std::log(2.0));
    EXPECT_TRUE(std::signbit(base::sine(-0.0)));
    EXPECT_EQ(base::cosine(0), 1);
    EXPECT_EQ(base::sine(std::acos(0.0)), 1);
    EXPECT_EQ(base::arcTangent(infinity), std::acos(0.0));
    EXPECT_EQ(base::arcTangent(-infinity), -std::acos(0.0));
    for (const double value :
         {base::exponential(std::nan("")), base::logarithm(-1), base::logarithm(std::nan("")),
          base::sine(infinity), base::cosine(-infinity), base::arcTangent(std::nan(""))})
        EXPECT_TRUE(std::isnan(value));
}

/// A digest of results, in which every not-a-number counts alike.
class Digest {
public:
    void add(float value) {
        const auto bits = std::isnan(value) ? 0x7FC00000U : std::bit_cast<std::uint32_t>(value);
        hash_ = (hash_ ^ bits) * 1099511628211U;
    }
    void add(const Block& block, std::size_t count) {
        ASSERT_NE(block, nullptr);
        for (std::size_t k = 0; k < count; ++k) add(block[k]);
    }
    std::uint64_t value() const { return hash_; }

private:
    std::uint64_t hash_ = 1469598103934665603U;
};

using SameBitsEverywhere = InOwnFolder;

/// All exports whose results elementary functions enter. Whatever builds the library and wherever it runs, this is
/// the digest.
TEST_F(SameBitsEverywhere, WhateverComesOfElementaryFunctions) {
    std::mt19937 random(16);
    const auto values = [&](std::size_t count, float from, float step) {
        std::vector<float> list(count);
        for (float& value : list) value = from + static_cast<float>(random() % 4096) * step;
        return list;
    };
    Digest digest;
    const auto lon = values(300, 70, 0.017F), lat = values(300, 10, 0.011F),
               value = values(300, -20, 0.0123F);
    for (const float kappa : {0.02F, 0.5F, 4.0F})
        digest.add(Block(barnes(kappa, 12, 0.4F, 71, 51, 70, 140, 10, 60, 300, lon.data(), lat.data(),
                                value.data(), 5)),
                   71 * 51);
    const float radii[] = {10, 7, 4, 2, 1};
    digest.add(
        Block(cressman(5, radii, 71, 51, 70, 140, 10, 60, 300, lon.data(), lat.data(), value.data(), 0)),
        71 * 51);
    digest.add(Block(TqqOA(lon.data(), lat.data(), value.data(), 300, 0, 70, 140, 10, 60, 1, 1, 3)),
               71 * 51 + 9);
    const std::string reports = sample("stations/sfc_95031820.000"),
                      temperatures = sample("stations/temp_95031808.000");
    for (const int method : {0, 1}) {
        digest.add(Block(OAReadVelmar1(reports.c_str(), method, 1, 0, -120, -70, 25, 50, 1, 1, 3)), 51 * 26);
        digest.add(Block(OAReadVelmar3(temperatures.c_str(), method, 0, -120, -70, 25, 50, 1, 1, 3)),
                   51 * 26);
    }
    digest.add(Block(ReadVelmar1Tqq(reports.c_str(), 0, 1, 0, -120, -70, 25, 50, 1, 1, 2)), 51 * 26 + 9);
    const auto u = values(40 * 30, -30, 0.013F), v = values(40 * 30, -30, 0.017F);
    for (const auto kernel : {hdiv, hvor})
        digest.add(Block(kernel(u.data(), v.data(), 40, 30, 9999, 70, -87, 2.5F, 5.9F)), 40 * 30);
    for (std::size_t k = 1; k < 300; ++k) {
        float way[3];
        FJJS2(lon[k - 1], lat[k - 1], -lon[k], lat[k] * 1.5F - 30, &way[0], &way[1], &way[2]);
        for (const float each : way) digest.add(each);
    }
    readVelmarData5(sample("soundings/sounding_11101100.000").c_str());
    const auto& soundings = capi::state().soundings.soundings;
    ASSERT_FALSE(soundings.empty());
    for (const auto& sounding : soundings) digest.add(sounding.freezingPressure);
    EXPECT_EQ(digest.value(), 0x91E31AF60268265D);
}

}  // namespace
