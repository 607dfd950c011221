#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <limits>
#include <random>

#include "analysis/plainAnalyses.h"
#include "base/progress.h"
#include "support/files.h"
#include "support/said.h"

namespace {

using namespace velmar;
using test::Block;
using test::Nodes;
using test::StationList;
using testing::Each;
using testing::ElementsAre;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();
const std::vector<float> radii{25, 10, 5, 2, 1};

class Analyses : public testing::Test {
protected:
    void SetUp() override { base::setProgressEnabled(false); }
    void TearDown() override { base::setProgressEnabled(true); }

    float between(float low, float high) { return std::uniform_real_distribution<float>(low, high)(random_); }

    /// Stations in and around an area, some at whole degrees, some twice.
    StationList stations(int count, float west, float east, float south, float north) {
        StationList list;
        while (list.count() < count) {
            const bool whole = random_() % 4 == 0;
            const float lon = between(west - 2, east + 2);
            const float lat = between(south - 2, north + 2);
            list.lon.push_back(whole ? std::round(lon) : lon);
            list.lat.push_back(whole ? std::round(lat) : lat);
            list.value.push_back(random_() % 20 == 0 ? -9999 : between(-30, 40));
            if (random_() % 30 != 0) continue;
            list.lon.push_back(list.lon.back());
            list.lat.push_back(list.lat.back());
            list.value.push_back(between(-30, 40));
        }
        return list;
    }

    std::mt19937 random_{11};
};

std::vector<float> all(const Block& block, std::size_t count) {
    EXPECT_NE(block, nullptr);
    return block ? std::vector<float>(block.get(), block.get() + count) : std::vector<float>{};
}

Block barnesOf(const StationList& s, const Nodes& n, int west, int east, int south, int north, float mask,
               float kappa = 0.25F, float radius = 20, float gamma = 0.3F) {
    return Block(barnes(kappa, radius, gamma, n.nx, n.ny, west, east, south, north, s.count(), s.lon.data(),
                        s.lat.data(), s.value.data(), mask));
}

Block cressmanOf(const StationList& s, const Nodes& n, float west, float east, float south, float north,
                 float mask, const std::vector<float>& scans = radii) {
    return Block(cressman(static_cast<int>(scans.size()), scans.data(), n.nx, n.ny, west, east, south, north,
                          s.count(), s.lon.data(), s.lat.data(), s.value.data(), mask));
}

/// Whether all values are the same, and not-a-number where the others are.
bool same(const std::vector<float>& a, const std::vector<float>& b) {
    return std::ranges::equal(a, b,
                              [](float x, float y) { return x == y || (std::isnan(x) && std::isnan(y)); });
}

TEST_F(Analyses, EqualThePlainWay) {
    const auto below = [&](int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); };
    for (int round = 0; round < 60; ++round) {
        const int west = below(300) - 100, south = below(120) - 80;
        const int east = west + 5 + below(40), north = south + 5 + below(30);
        const auto w = static_cast<float>(west), e = static_cast<float>(east);
        const auto s = static_cast<float>(south), n = static_cast<float>(north);
        const Nodes nodes = test::nodesBetween(2 + below(50), 2 + below(40), w, e, s, n);
        StationList list = stations(below(round % 10 == 0 ? 500 : 60), w, e, s, n);
        constexpr std::array wild{nan, infinity, 999999.0F, -1e30F};
        if (round % 2 == 0 && list.count() > 2) list.value[1] = wild[static_cast<std::size_t>(round / 2 % 4)];
        const float mask = round % 3 == 0 ? between(0.1F, 8) : 0;
        const float kappa = between(0.05F, 2), radius = between(1, 30), gamma = between(0.2F, 1.1F);
        ASSERT_TRUE(same(
            all(barnesOf(list, nodes, west, east, south, north, mask, kappa, radius, gamma), nodes.count()),
            test::plainBarnes(kappa, radius, gamma, nodes, list, mask)))
            << round;
        ASSERT_TRUE(same(all(cressmanOf(list, nodes, w, e, s, n, mask), nodes.count()),
                         test::plainCressman(radii, nodes, list, mask)))
            << round;
    }
}

TEST_F(Analyses, EqualThePlainWayOnRealReports) {
    constexpr int withoutGrid = -1;
    const Block read(OAReadVelmar3(test::sample("stations/temp_95031808.000").c_str(), withoutGrid, 0, 0, 0,
                                   0, 0, 1, 1, 0));
    StationList list;
    const float* station = read.get() + 11 + static_cast<int>(read[10]);
    for (int k = 0; k < static_cast<int>(read[1]); ++k, station += 5) {
        list.lon.push_back(station[2]);
        list.lat.push_back(station[3]);
        list.value.push_back(station[4]);
    }
    ASSERT_EQ(list.count(), 1014);
    const Nodes nodes = test::nodesBetween(57, 33, -124, -68, 24, 56);
    EXPECT_EQ(all(barnesOf(list, nodes, -124, -68, 24, 56, 2), nodes.count()),
              test::plainBarnes(0.25F, 20, 0.3F, nodes, list, 2));
    EXPECT_EQ(all(cressmanOf(list, nodes, -124, -68, 24, 56, 0), nodes.count()),
              test::plainCressman(radii, nodes, list, 0));
}

TEST_F(Analyses, EqualThePlainWayWhereWeightsHaveFewDigits) {
    // At these distances the weights of the last pass are the smallest that doubles have.
    const Nodes nodes = test::nodesBetween(3, 3, 0, 20, 0, 20);
    for (int round = 0; round < 500; ++round) {
        const StationList list{{between(11.30F, 11.35F), between(8.65F, 8.70F), 10},
                               {10, 10, between(8.65F, 8.69F)},
                               {between(-9, 9), between(-9, 9), between(-9, 9)}};
        ASSERT_EQ(all(barnesOf(list, nodes, 0, 20, 0, 20, 0), 9),
                  test::plainBarnes(0.25F, 20, 0.3F, nodes, list, 0))
            << round;
    }
}

TEST_F(Analyses, EqualThePlainWayInRowsOfSeveralBlocks) {
    const Nodes nodes = test::nodesBetween(20000, 2, 0, 40, 0, 1);
    const StationList list = stations(25, 0, 40, 0, 1);
    const std::vector<float> scans{9000, 3000, 300};
    for (const float mask : {0.0F, 1.5F}) {
        EXPECT_TRUE(same(all(barnesOf(list, nodes, 0, 40, 0, 1, mask), nodes.count()),
                         test::plainBarnes(0.25F, 20, 0.3F, nodes, list, mask)));
        EXPECT_TRUE(same(all(cressmanOf(list, nodes, 0, 40, 0, 1, mask, scans), nodes.count()),
                         test::plainCressman(scans, nodes, list, mask)));
    }
    EXPECT_EQ(test::foundNearest(nodes, list, 2, false), test::plainNearest(nodes, list, 2, false));
}

TEST_F(Analyses, FindTheNearestStation) {
    for (int round = 0; round < 40; ++round) {
        const Nodes nodes{
            30, 20, between(-180, 180), between(-90, 60), between(0.2F, 2), between(0.2F, 1.5F)};
        const StationList list =
            stations(40, nodes.x0, nodes.x0 + 30 * nodes.dx, nodes.y0, nodes.y0 + 20 * nodes.dy);
        const float radius = between(0.1F, 6);
        const bool inBoxOnly = round % 2 != 0;
        ASSERT_EQ(test::foundNearest(nodes, list, radius, inBoxOnly),
                  test::plainNearest(nodes, list, radius, inBoxOnly))
            << round;
    }
}

TEST_F(Analyses, ByBarnesLeaveTheFirstStationOutOfTheFirstGuess) {
    const Nodes nodes = test::nodesBetween(5, 5, 0, 4, 0, 4);
    // Far from all others a point of the first guess is 0, and nothing reaches it later.
    const StationList one{{1}, {1}, {7}};
    const std::vector<float> grid = all(barnesOf(one, nodes, 0, 4, 0, 4, 0, 0.25F, 1), 25);
    EXPECT_EQ(grid[6], 7) << "a point takes the value of the station at its place";
    EXPECT_EQ(all(barnesOf(one, nodes, 0, 4, 0, 4, 0, 0.25F, -1), 25)[6], 7) << "whatever the radius";
    EXPECT_EQ(grid[24], 0);
    EXPECT_EQ(grid[7], 0) << "the pass radius is a third of 1";
    EXPECT_THAT(all(barnesOf({}, nodes, 0, 4, 0, 4, 0), 25), Each(0));
    const StationList two{{9, 2}, {9, 2}, {100, 3}};
    EXPECT_THAT(all(barnesOf(two, nodes, 0, 4, 0, 4, 0), 25), Each(3));
    const StationList farNan{{50, 2.5F, 16}, {9, 2.5F, 2}, {1, 3, nan}};
    EXPECT_THAT(all(barnesOf(farNan, nodes, 0, 4, 0, 4, 0, 0.05F), 25), Each(testing::IsNan()))
        << "whatever its weight";
}

TEST_F(Analyses, ByBarnesTellTheStateBeforeEachPass) {
    const Nodes nodes = test::nodesBetween(2, 2, 0, 1, 0, 1);
    const auto told = [&](const StationList& list) {
        base::setProgressEnabled(true);
        test::CapturedOutput output;
        barnesOf(list, nodes, 0, 1, 0, 1, 0);
        base::setProgressEnabled(false);
        return output.text();
    };
    const std::string word = "\xBC\xC6\xCB\xE3\xD0\xDE\xD5\xFD";
    // The first guess is 4 everywhere, on the edge estimates stay what was observed.
    const std::string text = told({{0.5F, 5, 0}, {0.5F, 5, 0}, {7, 4, 4}});
    EXPECT_EQ(text.substr(0, text.find('\n') + 1), word + "0 3.000000 1.000000 2.449490\n");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 5);
    EXPECT_THAT(text, testing::HasSubstr(word + "4 "));
    EXPECT_THAT(told({}), testing::StartsWith(word + "0 -1.000000 nan 0.000000\n"));
}

TEST_F(Analyses, ByCressmanStartFromTheSumAndBlankWhatTheThirdScanMisses) {
    const Nodes nodes = test::nodesBetween(11, 11, 0, 10, 0, 10);
    const StationList list{{2, 6, -355}, {2, 2, 5}, {3, 5, -9999}};
    const std::vector<float> grid = all(cressmanOf(list, nodes, 0, 10, 0, 10, 0), 121);
    EXPECT_EQ(grid[120], -9999);
    EXPECT_EQ(grid[24], 3) << "a station at a point alone reaches it in the last scan";
    EXPECT_THAT(all(cressmanOf(list, nodes, 0, 10, 0, 10, 0, {1}), 121), testing::Contains(8)) << "3 + 5";
    EXPECT_THAT(all(cressmanOf({}, nodes, 0, 10, 0, 10, 0), 121), Each(-9999));
    EXPECT_THAT(all(cressmanOf({}, nodes, 0, 10, 0, 10, 0, {1, 2}), 121), Each(0))
        << "two scans blank nothing";
    // A circle away, and less than a grid length west of the grid.
    EXPECT_THAT(all(cressmanOf({{-355}, {5}, {6}}, nodes, 0, 10, 0, 10, 0), 121), testing::Contains(6));
    EXPECT_THAT(all(cressmanOf({{359.5F}, {5}, {6}}, nodes, 0, 10, 0, 10, 0), 121), testing::Contains(6));
    EXPECT_THAT(all(cressmanOf({{358.5F}, {5}, {6}}, nodes, 0, 10, 0, 10, 0), 121), Each(-9999));

    base::setProgressEnabled(true);
    test::CapturedOutput output;
    EXPECT_EQ(cressmanOf({{1, 2}, {1, 2}, {-9000, -999}}, nodes, 0, 10, 0, 10, 0), nullptr);
    EXPECT_EQ(output.text(), "retrn");
}

TEST_F(Analyses, AreCappedAndMaskedByPlainDistances) {
    // At 80 degrees north meridians are close, but the mask does not know it.
    const Nodes nodes = test::nodesBetween(7, 3, 2, 8, 78, 82);
    const StationList list{{50, 5, 5}, {80, 80, 80}, {1, 4, 4}};
    EXPECT_THAT(all(barnesOf(list, nodes, 2, 8, 78, 82, 2), nodes.count()),
                ElementsAre(-9999, -9999, -9999, 4, -9999, -9999, -9999,  //
                            -9999, 4, 4, 4, 4, 4, -9999,                  //
                            -9999, -9999, -9999, 4, -9999, -9999, -9999));
}

TEST_F(Analyses, TakeWhateverTheyAreGiven) {
    const std::vector<float> odd{nan, infinity, -infinity, 0, 1e30F, -3e38F, 5, 9999, 7};
    StationList list;
    for (const float a : odd)
        for (const float b : odd) {
            list.lon.push_back(a);
            list.lat.push_back(b);
            list.value.push_back(odd[random_() % odd.size()]);
        }
    for (const auto& [nx, ny] : {std::pair{1, 1}, {1, 5}, {5, 1}, {3, 3}}) {
        const Nodes nodes{nx, ny, 0, 0, 1, 1};
        for (const float parameter : odd) {
            barnesOf(list, nodes, 0, 4, INT_MIN, INT_MAX, parameter, parameter, parameter, parameter);
            barnesOf(list, nodes, 4, 0, 4, 0, 1, 0.25F, parameter, 0.3F);
            EXPECT_NE(barnesOf(list, nodes, 0, 4, 0, 4, 1, parameter), nullptr);
            cressmanOf(list, nodes, parameter, 4, 0, parameter, parameter, {1, parameter, 2, parameter});
            test::foundNearest({nx, ny, parameter, 0, 1, parameter}, list, parameter, false);
        }
    }
    // Nothing else is asked for before a result that cannot be.
    for (const auto& [nx, ny] : {std::pair{0, 3}, {3, -1}, {INT_MAX, INT_MAX}}) {
        EXPECT_EQ(barnesOf(list, {nx, ny, 0, 0, 1, 1}, 0, 4, 0, 4, 0), nullptr);
        EXPECT_EQ(cressmanOf(list, {nx, ny, 0, 0, 1, 1}, 0, 4, 0, 4, 0), nullptr);
    }
    const float one = 1;
    EXPECT_EQ(barnes(1, 1, 1, 2, 2, 0, 1, 0, 1, 1, &one, nullptr, &one, 0), nullptr);
    EXPECT_EQ(cressman(1, nullptr, 2, 2, 0, 1, 0, 1, 1, &one, &one, &one, 0), nullptr);
    EXPECT_NE(Block(cressman(-1, nullptr, 2, 2, 0, 1, 0, 1, -5, nullptr, nullptr, nullptr, 0)), nullptr);
}

TEST(Expansion, RefinesByCubics) {
    const auto refined = [](std::vector<float> row, int factor) {
        const Block block(gagexps(row.data(), static_cast<int>(row.size()), 1, factor, 1, 9999));
        return all(block, (row.size() - 1) * static_cast<std::size_t>(factor) + 1);
    };
    EXPECT_THAT(refined({1, 2, 3, 4}, 2), ElementsAre(1, 1.5F, 2, 2.5F, 3, 3.5F, 4));
    EXPECT_THAT(refined({1, 2, 9999, 4}, 2), ElementsAre(1, 1.5F, 2, 9999, 9999, 9999, 4));
    EXPECT_THAT(refined({0, 1, 0}, 2), ElementsAre(0, 0.625F, 1, 0.625F, 0));
    EXPECT_EQ(refined({0, 1}, 25).size(), 26U);
    EXPECT_THAT(refined({7}, 500000000), ElementsAre(7)) << "nothing grows with the factor";
    // The terms are added from the cube down: the last bit would differ otherwise.
    const std::vector<float> row{0.1F, 7.3F, -2.2F, 5.7F};
    const float t = 1.0F / 3.0F, s0 = (row[2] - row[0]) * 0.5F, s1 = (row[3] - row[1]) * 0.5F;
    const float a = 2.0F * row[1] + s0 - 2.0F * row[2] + s1,
                b = 3.0F * row[2] - s1 - 2.0F * s0 - 3.0F * row[1];
    EXPECT_EQ(refined(row, 3)[4], a * (t * t * t) + b * (t * t) + s0 * t + row[1]);

    const std::vector<float> grid{1, 2, 9999, 4, 5, 6};
    EXPECT_THAT(all(Block(gagexps(grid.data(), 2, 3, 1, 2, 9999)), 10),
                ElementsAre(1, 2, 9999, 3, 9999, 4, 9999, 5, 5, 6));
    EXPECT_EQ(all(Block(gagexps(grid.data(), 3, 2, 1, 1, 9999)), 6), grid);
    for (const auto& [nx, ny, fx, fy] : {std::array{3, 2, 0, 1}, {3, 2, 1, -1}, {0, 2, 1, 1}, {3, -2, 1, 1}})
        EXPECT_EQ(gagexps(grid.data(), nx, ny, fx, fy, 9999), nullptr);
    EXPECT_EQ(gagexps(nullptr, 3, 2, 1, 1, 9999), nullptr);
    EXPECT_EQ(gagexps(grid.data(), 3, 2, INT_MAX, INT_MAX, 9999), nullptr);
}

}  // namespace
