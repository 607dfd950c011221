#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "capi/state.h"
#include "support/files.h"
#include "support/said.h"
#include "triangles/plainTriangles.h"

namespace {

using namespace velmar::test;

struct Stations {
    std::vector<float> x, y, values;
};

Block contour(Stations& s, int mode, float start, float interval, std::vector<float> levels = {}) {
    return Block(reinterpret_cast<float*>(SanJiao(s.x.data(), s.y.data(), s.values.data(), levels.data(),
                                                  static_cast<int>(s.x.size()), mode, start, interval,
                                                  static_cast<int>(levels.size()))));
}

/// Values along a row of stations, so that each level has a line across it.
Stations strip(const std::vector<float>& values) {
    Stations s;
    for (std::size_t k = 0; k < values.size(); ++k) {
        for (const float y : {20.0F, 26.0F}) {
            s.x.push_back(100 + 5 * static_cast<float>(k));
            s.y.push_back(y);
            s.values.push_back(values[k]);
        }
    }
    return s;
}

std::vector<float> levelsOf(const Block& block) {
    std::vector<float> levels;
    if (block == nullptr) return levels;
    for (std::size_t k = 1; k < static_cast<std::size_t>(block[0]);
         k += 2 + 2 * static_cast<std::size_t>(block[k]))
        levels.push_back(block[k + 1]);
    return levels;
}

/// Random, lattice-like, clustered, skewed and coinciding stations.
Stations someStations(std::mt19937& random, int kind) {
    Stations s;
    const auto part = [&random](unsigned of) { return static_cast<float>(random() % of); };
    for (auto n = 3 + random() % 100; n > 0; --n) {
        switch (kind) {
            case 0:
                s.x.push_back(70 + part(70000) / 1000);
                s.y.push_back(part(50000) / 1000);
                break;
            case 1:
                s.x.push_back(100 + part(12));
                s.y.push_back(20 + part(12));
                break;
            case 2:
                s.x.push_back(100 + 20 * part(4) + part(1000) / 500);
                s.y.push_back(20 + 10 * part(3) + part(1000) / 500);
                break;
            case 3:
                s.x.push_back(-120 + part(1000) / 100);
                s.y.push_back(s.x.back() / 2 + part(100) / 50);
                break;
            default:
                s.x.push_back(100 + part(100) / 1000 * (part(2) > 0 ? 1 : 200));
                s.y.push_back(10 + part(100) / 1000 * (part(3) > 0 ? 1 : 100));
        }
        s.values.push_back(part(400) / 10 - 5);
    }
    return s;
}

TEST(StationContours, AreThoseOfThePlainWay) {
    std::mt19937 random(51);
    constexpr float odd[] = {std::numeric_limits<float>::quiet_NaN(), 1e30F,
                             std::numeric_limits<float>::infinity()};
    const std::vector<float> levels{0, 5, 12.3F, 20, 34.5F};
    int withLines = 0;
    for (int round = 0; round < 200; ++round) {
        Stations s = someStations(random, round % 5);
        if (round % 7 == 0) (round % 2 == 0 ? s.x : s.y)[random() % s.x.size()] = odd[round % 3];
        if (round % 11 == 0) s.values[random() % s.x.size()] = odd[round % 3];
        const Block block = contour(s, 2, 0, 0, levels);
        // The values have been moved off the levels by now.
        PlainTriangles plain(s.x, s.y, s.values);
        plain.network();
        std::vector<float> expected{0};
        for (const float level : levels) {
            const std::vector<float> lines = plain.lines(level);
            expected.insert(expected.end(), lines.begin(), lines.end());
        }
        expected[0] = static_cast<float>(expected.size());
        ASSERT_EQ(block == nullptr, expected.size() == 1) << "round " << round;
        if (block == nullptr) continue;
        ++withLines;
        ASSERT_EQ(block[0], expected[0]) << "round " << round;
        ASSERT_EQ(std::memcmp(block.get(), expected.data(), expected.size() * sizeof(float)), 0)
            << "round " << round;
    }
    EXPECT_GT(withLines, 150);
}

TEST(StationContours, HaveTheLevelsOfTheirMode) {
    using Levels = std::vector<float>;
    const auto chosen = [](const Levels& values, int mode, float start, float interval,
                           const Levels& list = {}) {
        Stations s = strip(values);
        return levelsOf(contour(s, mode, start, interval, list));
    };
    EXPECT_EQ(chosen({9.9F, 30.1F}, 0, 0, 5), (Levels{10, 15, 20, 25, 30}));
    EXPECT_EQ(chosen({-3, 12}, 0, 0, 5), (Levels{5, 10}));
    EXPECT_EQ(chosen({-12, 3}, 0, 0, 5), (Levels{-10, -5, 0}));
    EXPECT_EQ(chosen({0.5F, 1000.5F}, 0, 0, 1).size(), 50U);
    EXPECT_EQ(chosen({-3, 12}, 0, 0, 0), Levels{});
    EXPECT_EQ(chosen({-3, 12}, 0, 0, -5), Levels{});
    EXPECT_EQ(chosen({1e9F, 2e9F}, 0, 0, 1e-28F), Levels{});
    EXPECT_EQ(chosen({-3, 12.5F}, 1, 10, 1), (Levels{10, 11, 12}));
    EXPECT_EQ(chosen({-3, 12}, 1, 12.5F, -1), Levels{});
    EXPECT_EQ(chosen({-3, 99}, 1, -20.5F, 1).size(), 32U) << "of 50, those above -3";
    EXPECT_EQ(chosen({-3, 12}, 2, 0, 0, {7, 2, 7}), (Levels{7, 2, 7}));
    EXPECT_EQ(chosen({-3, 12}, 2, 0, 0, Levels(50, 2)), Levels{});
    EXPECT_EQ(chosen({-3, 12}, 3, 0, 1), Levels{});
}

TEST(StationContours, MoveValuesOffTheLevels) {
    Stations s = strip({10.02F, -10.02F, 10.036F, 0.01F, 9.98F});
    contour(s, 2, 0, 0, {10, -10, 0, 10.04F});
    const auto near = [&](std::size_t k, float value) { EXPECT_NEAR(s.values[2 * k], value, 1e-5F); };
    near(0, 10.07F);
    near(1, -10.07F);
    near(2, 10.086F);
    near(3, -0.04F);
    near(4, 10.03F);
    s = strip({10, 30});
    contour(s, 0, 0, 5);
    near(0, 10.05F);  // The smallest value is a level.
    // Without levels nothing is touched.
    s = strip({10.02F, 10.02F});
    contour(s, 7, 0, 0, {10});
    EXPECT_EQ(s.values[0], 10.02F);
}

TEST(StationContours, AreToldAsTheyAreMade) {
    velmar::capi::state() = {};
    Stations s{{100, 105, 100}, {20, 20, 25}, {0, 10, 0}};
    Block block;
    const std::string head = "0.000000 5.000000 0\n0.000000 7.500000 1\n";
    const std::string size = "\xD7\xDC\xC9\xEA\xC7\xEB\xC4\xDA\xB4\xE6\xB4\xF3\xD0\xA1 13\n713";
    EXPECT_EQ(said([&] { block = contour(s, 2, 0, 0, {5, 7.5F}); }), head + size);
    EXPECT_EQ(
        std::vector<float>(block.get(), block.get() + 13),
        (std::vector<float>{13, 2, 5, 102.5F, 20, 102.5F, 22.5F, 2, 7.5F, 103.75F, 20, 103.75F, 21.25F}));
    // What was at the places of the levels before is printed, too.
    EXPECT_EQ(said([&] { contour(s, 2, 0, 0, {6}); }).substr(0, 20), "5.000000 6.000000 0\n");
}

TEST(StationContours, NeedThreeStationsThatAreNoLine) {
    const std::vector<float> z{0, 10, 20};
    Stations flat{{100, 101, 102}, {20, 20, 21.9F}, z};
    EXPECT_EQ(contour(flat, 2, 0, 0, {10}), nullptr);
    EXPECT_EQ(flat.values[1], 10.05F) << "values are moved before there are triangles";
    Stations high{{100, 101, 102}, {20, 20, 22.1F}, z};
    EXPECT_NE(contour(high, 2, 0, 0, {5}), nullptr);
    Stations two{{100, 101}, {20, 20}, {0, 10}};
    EXPECT_EQ(contour(two, 2, 0, 0, {5}), nullptr);
    Stations same{{100, 100, 100}, {20, 20, 20}, z};
    EXPECT_EQ(contour(same, 2, 0, 0, {5}), nullptr);
    EXPECT_EQ(SanJiao(nullptr, z.data(), high.values.data(), z.data(), 3, 2, 0, 0, 1), 0);
    EXPECT_EQ(SanJiao(z.data(), z.data(), nullptr, z.data(), 3, 2, 0, 0, 1), 0);
    EXPECT_EQ(SanJiao(high.x.data(), high.y.data(), high.values.data(), nullptr, 3, 2, 0, 0, 1), 0);
}

}  // namespace
