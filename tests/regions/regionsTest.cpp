#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <sstream>

#include "capi/state.h"
#include "regions/plainRegions.h"
#include "support/files.h"
#include "support/said.h"

namespace {

using namespace velmar::test;

/// The region table of a process is made once: tests take it away again.
class Regions : public testing::Test {
protected:
    void SetUp() override { velmar::capi::state().regions.reset(); }
    void TearDown() override { velmar::capi::state().regions.reset(); }
};

int load(const std::string& text) { return readRegionData(TemporaryFile(text).path().c_str()); }

std::string textOf(const std::vector<PlainRegion>& regions) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(9);
    text << "diamond 10 regions\n";
    for (const PlainRegion& region : regions) {
        text << "0 0 " << region.name << ' ' << region.points.size() / 2 << '\n';
        for (const float value : region.points) text << value << ' ';
        text << '\n';
    }
    return text.str();
}

/// Stars with many edges, on a lattice coarse enough for points on vertices, on edges and on parallels.
std::vector<PlainRegion> someRegions(std::mt19937& random) {
    std::vector<PlainRegion> regions;
    const int count = 1 + static_cast<int>(random() % 12);
    for (int k = 0; k < count; ++k) {
        std::vector<float> outline;
        const auto points = random() % 4 == 0 ? random() % 4 : 3 + random() % 60;
        const auto centre = static_cast<float>(random() % 360) - 20;
        for (std::size_t p = 0; p < points; ++p) {
            const double angle = 6.2831853 * static_cast<double>(p) / static_cast<double>(points);
            const double radius = 2 + static_cast<double>(random() % 8);
            outline.push_back(std::round(centre + static_cast<float>(2 * radius * std::cos(angle))));
            outline.push_back(std::round(40 + static_cast<float>(radius * std::sin(angle))));
        }
        if (points > 0 && random() % 5 != 0) outline.insert(outline.end(), {outline[0], outline[1]});
        regions.emplace_back(std::string("R").append(std::to_string(k)), outline);
    }
    return regions;
}

TEST_F(Regions, AreFoundAsByThePlainWalk) {
    std::mt19937 random(74);
    for (int round = 0; round < 60; ++round) {
        const std::vector<PlainRegion> regions = someRegions(random);
        velmar::capi::state().regions.reset();
        ASSERT_EQ(load(textOf(regions)), 1);
        for (int k = 0; k < 100; ++k) {
            const auto& near = regions[random() % regions.size()].points;
            const float x = near.empty() ? 50 : near[0] + static_cast<float>(random() % 41) / 2 - 10;
            const float y = 30 + static_cast<float>(random() % 41) / 2;
            const PlainFinding expected = plainFind(regions, x, y);
            std::string name;
            ASSERT_EQ(said([&] { name = countyNameFromRegion(x, y); }), expected.told) << x << ' ' << y;
            ASSERT_EQ(name, expected.name) << x << ' ' << y;
        }
    }
}

TEST_F(Regions, OfRealFilesHoldTheirPlaces) {
    ASSERT_EQ(readRegionData(sample("regions/us_states.dat").c_str()), 1);
    EXPECT_STREQ(countyNameFromRegion(360 - 104.99F, 39.74F), "Colorado");
    EXPECT_STREQ(countyNameFromRegion(360 - 157.86F, 21.31F), "Hawaii");
    EXPECT_STREQ(countyNameFromRegion(360 - 40, 40), " ");

    velmar::capi::state().regions.reset();
    ASSERT_EQ(readRegionData(sample("regions/africa_gbk.dat").c_str()), 1);
    int count = 0;
    const float* const first = getSingleRegionBoundaryByOrder(0, &count);
    EXPECT_EQ(count, 77);
    EXPECT_EQ(first[0], 28.737F);
    // Lesotho comes before the country around it.
    EXPECT_STRNE(countyNameFromRegion(28.3F, -29.5F), countyNameFromRegion(25, -30));
}

TEST_F(Regions, AreLoadedOnce) {
    EXPECT_STREQ(countyNameFromRegion(1, 1), " ");
    EXPECT_EQ(readRegionData("no/such/file"), -1);
    EXPECT_EQ(readRegionData(nullptr), -1);
    EXPECT_EQ(load("diamond x"), -1);
    const std::string square = "0 0 A 5 0 0 4 0 4 4 0 4 0 0 ";
    EXPECT_EQ(load("any 3 words " + square), 1);
    EXPECT_EQ(load("any 3 words 0 0 B 1 1 1"), -1);
    EXPECT_STREQ(countyNameFromRegion(1, 1), "A");

    // A file without regions is kept just so.
    velmar::capi::state().regions.reset();
    EXPECT_EQ(load("any 3 words 0 0"), -1);
    EXPECT_EQ(load("any 3 words " + square), -1);
    EXPECT_STREQ(countyNameFromRegion(1, 1), " ");
}

TEST_F(Regions, KeepThePointsInFrontOfABrokenOne) {
    EXPECT_EQ(load("a 1 b 0 0 A 2 1 2 3 4  0 0 B 2147483647 5 5 9 5 9 8 5 8 5 5 9 x"), 0);
    int count = 0;
    const float* const points = getSingleRegionBoundaryByName("B", &count);
    ASSERT_EQ(count, 5);
    EXPECT_EQ(points[5], 8);
    EXPECT_NE(getSingleRegionBoundaryByOrder(1, nullptr), nullptr);
    EXPECT_STREQ(countyNameFromRegion(6, 6), " ") << "it has no bounds";
}

TEST_F(Regions, AreHandedOutByOrderAndName) {
    int count = 7;
    EXPECT_EQ(getSingleRegionBoundaryByOrder(0, &count), nullptr);
    EXPECT_EQ(getAllRegionBoundaryByName("A", &count), nullptr);
    EXPECT_EQ(count, 0);

    const std::string longName(60, 'n');
    ASSERT_EQ(load("a 1 b 0 0 A 1 1 2  0 0 " + longName + " 0  0 0 A 2 3 4 5 6  0 0 C -3"), 1);
    EXPECT_EQ(getSingleRegionBoundaryByOrder(2, &count)[1], 4);
    EXPECT_EQ(count, 2);
    for (const int beyond : {-1, 4}) {
        EXPECT_EQ(getSingleRegionBoundaryByOrder(beyond, &count), nullptr);
        EXPECT_EQ(count, 0);
    }
    EXPECT_EQ(getSingleRegionBoundaryByName("A", &count)[0], 1);
    EXPECT_EQ(count, 1);
    for (const char* name : {"a", longName.c_str(), static_cast<const char*>(nullptr)})
        EXPECT_EQ(getSingleRegionBoundaryByName(name, &count), nullptr);
    EXPECT_NE(getSingleRegionBoundaryByName(longName.substr(0, 47).c_str(), &count), nullptr);

    const Block all(getAllRegionBoundaryByName("A", &count));
    EXPECT_EQ(count, 3);
    EXPECT_EQ(elements(all, 9), (std::vector<float>{2, 1, 1, 2, 2, 3, 4, 5, 6}));
    EXPECT_EQ(Block(getAllRegionBoundaryByName("B", &count))[0], 0);
    EXPECT_EQ(count, 0);
}

}  // namespace
