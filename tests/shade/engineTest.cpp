#include <gmock/gmock.h>

#include <climits>
#include <limits>
#include <random>

#include "shade/shadingCall.h"
#include "support/fields.h"
#include "support/said.h"

namespace {

using namespace velmar;
using test::Field;
using test::Polygon;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Shading : public test::SilentTest {
protected:
    static std::vector<Polygon> polygons(const Field& f) { return test::polygonsOf(test::shade(f)); }

    static std::string printed(const Field& f) {
        return test::said([&] { test::shade(f); });
    }
};

/// A grid of one value.
Field plain(int nx, int ny, float value, std::vector<float> levels, std::vector<int> colours) {
    const std::vector<float> values(static_cast<std::size_t>(nx * ny), value);
    return {values, nx, ny, std::move(levels), std::move(colours), 0};
}

/// 5 columns and rows of 4 with another value in the middle.
Field around(float middle, std::vector<float> levels, std::vector<int> colours) {
    Field f = plain(5, 5, 4, std::move(levels), std::move(colours));
    f.values[12] = middle;
    return f;
}

const std::vector<test::Position> square{{1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1}, {5, 2},
                                         {5, 3}, {5, 4}, {5, 5}, {4, 5}, {3, 5}, {2, 5},
                                         {1, 5}, {1, 4}, {1, 3}, {1, 2}, {1, 1}};

TEST_F(Shading, TakesAnEqualValueAsBelow) {
    EXPECT_THAT(polygons(plain(4, 4, 2, {2, 5}, {1, 2})), IsEmpty());
    EXPECT_THAT(polygons({{1, 1, 1, 1, 2, 2}, 2, 3, {1}, {7}, 0}),
                ElementsAre(Polygon{1, 7, {{1, 2}, {2, 2}, {2, 3}, {1, 3}, {1, 2}}}));
}

TEST_F(Shading, JoinsLeftWithTopInASaddleOfEqualLengths) {
    EXPECT_THAT(polygons({{0, 2, 2, 0}, 2, 2, {1}, {7}}),
                ElementsAre(Polygon{1, 7, {{1.5F, 1}, {2, 1.5F}, {2, 1}, {1.5F, 1}}},
                            Polygon{1, 7, {{1, 1.5F}, {1.5F, 2}, {1, 2}, {1, 1.5F}}}));
    EXPECT_THAT(polygons({{0, 3, 3, 0, NAN, NAN, NAN, NAN}, 2, 4, {1}, {7}}), SizeIs(1))
        << "high ground hangs together";
}

TEST_F(Shading, EmitsHolesLastAndNewestFirst) {
    EXPECT_THAT(polygons(around(0, {1, 3, 5}, {11, 22, 33})),
                ElementsAre(Polygon{1, 11, square}, Polygon{3, 22, square},
                            Polygon{5, 11, {{3, 2.25F}, {3.75F, 3}, {3, 3.75F}, {2.25F, 3}, {3, 2.25F}}},
                            Polygon{5, 0, {{3, 2.75F}, {3.25F, 3}, {3, 3.25F}, {2.75F, 3}, {3, 2.75F}}}));
}

TEST_F(Shading, DropsWhatShrinksToAPointOrALine) {
    Field f = around(1, {1}, {7});
    EXPECT_THAT(polygons(f), ElementsAre(Polygon{1, 7, square}));
    f.values[13] = 1;
    EXPECT_THAT(polygons(f), SizeIs(1));
    f.values[17] = 1;
    EXPECT_THAT(polygons(f), SizeIs(2)) << "three points span an area";
}

TEST_F(Shading, TakesOutlinesOfMissingGroundForHigh) {
    const std::vector<Polygon> expected{
        {1, 7, square}, {1, 7, {{3, 2}, {4, 2}, {4, 3}, {4, 4}, {3, 4}, {2, 4}, {2, 3}, {2, 2}, {3, 2}}}};
    for (const float value : {9999.0F, NAN, INFINITY, -INFINITY}) {
        EXPECT_EQ(polygons(around(value, {1}, {7})), expected) << value;
    }
    EXPECT_THAT(polygons(around(std::numeric_limits<float>::max(), {1}, {7})), SizeIs(1)) << "not missing";
    Field f = around(NAN, {1}, {7});
    f.missing = NAN;
    EXPECT_EQ(polygons(f), expected);
    f.values[12] = 9999;
    EXPECT_THAT(polygons(f), SizeIs(1));
}

TEST_F(Shading, CutsStripsThatShareARow) {
    Field f = plain(2, 5, 4, {1}, {7});
    f.stripRows = 2;
    EXPECT_THAT(polygons(f),
                ElementsAre(Polygon{1, 7, {{1, 1}, {2, 1}, {2, 2}, {2, 3}, {1, 3}, {1, 2}, {1, 1}}},
                            Polygon{1, 7, {{1, 3}, {2, 3}, {2, 4}, {2, 5}, {1, 5}, {1, 4}, {1, 3}}}));
    f = around(0, {1}, {7});
    const auto whole = polygons(f);
    for (const int rows : {INT_MIN, -1, 4, 5, INT_MAX}) {
        f.stripRows = rows;
        EXPECT_EQ(polygons(f), whole) << rows;
    }
}

TEST_F(Shading, OutlinesLevelsBelowHugeValues) {
    // A strip's minimum is never taken to be above 9.99e33, so that the lower level here is not passed over.
    EXPECT_THAT(polygons(plain(3, 3, 1e34F, {1, 9.995e33F}, {1, 2})), SizeIs(2));
    EXPECT_THAT(polygons(plain(3, 3, 1e33F, {1, 9e32F}, {1, 2})), SizeIs(1));
}

TEST_F(Shading, LaysOutItsBlock) {
    Field f = around(0, {1, 2}, {-5, 150});
    f.x0 = 70;
    f.y0 = 60;
    f.dx = 0.5F;
    f.dy = -2;
    const test::Block block = test::shade(f);
    std::vector<float> rest;
    const auto shaded = test::polygonsOf(block, &rest);
    ASSERT_THAT(shaded, SizeIs(4));
    ASSERT_EQ(block[0], 25 + 2 * (2 * 17 + 3) + 2 * (2 * 5 + 3) + 12);
    std::vector<float> expected{-1, 5, 5, 70, 60, 72, 52, 0.5F, -2};
    expected.insert(expected.end(), f.values.begin(), f.values.end());
    expected.push_back(0);
    EXPECT_EQ(rest, expected);
    EXPECT_EQ(shaded[0].colour, 0);
    EXPECT_EQ(shaded[1].colour, 99);
    EXPECT_EQ(shaded[1].points[5], (test::Position{72, 58}));
}

TEST_F(Shading, LeavesOutLevelsThatTheNextOneCovers) {
    EXPECT_THAT(polygons(around(3, {0, 1, 2, 3}, {6, 7, 8, 9})),
                ElementsAre(Polygon{2, 8, square}, Polygon{3, 9, square}));
}

TEST_F(Shading, FailsWhenATraceOutgrowsThePointBuffer) {
    EXPECT_THAT(polygons(plain(3, 3, 4, {1}, {7})), SizeIs(1)) << "just fits";
    EXPECT_EQ(printed(plain(2, 9, 4, {1}, {7})), "Error in velmarCntrShad\n");
    EXPECT_EQ(printed(plain(9, 2, 4, {1}, {7})), "Error in velmarCntrShad\n");
    Field vast = plain(3, 3, 4, {1}, {7});
    vast.nx = vast.ny = INT_MAX;
    EXPECT_EQ(printed(vast), "Error in velmarCntrShad: Unable to allocate xy coord buffer\n")
        << "nor can there be one of any size";
}

/// Pits of 0 in ground of 1, every other column and row.
Field pits(int columns, int rows) {
    Field f = plain(2 * columns + 1, 2 * rows + 1, 1, {-1, 0.5F}, {7, 8});
    for (int j = 1; j < f.ny; j += 2) {
        for (int i = 1; i < f.nx; i += 2) f.values[static_cast<std::size_t>(j * f.nx + i)] = 0;
    }
    return f;
}

TEST_F(Shading, HasRoomForLessThan50000Holes) {
    Field f = pits(250, 200);
    const std::string text = printed(f);
    EXPECT_EQ(text.substr(text.find('\n')),
              "\nBuffer stack limit exceeded in velmarCntrShad\nError in velmarCntrShad\n");
    EXPECT_THAT(polygons(around(4, {1}, {7})), SizeIs(1)) << "nothing of the failed call is left";
    f.values[static_cast<std::size_t>(f.nx + 1)] = 1;
    EXPECT_THAT(polygons(f), SizeIs(2 + 49999));
}

TEST_F(Shading, SurvivesTheLargestNumbers) {
    std::mt19937 random(9);
    const std::string text = test::said([&] {
        for (int round = 0; round < 300; ++round) {
            Field f{
                test::steppedField(random, 12, 9, 5, 7), 12, 9, {-2e38F, 0, 1e38F, 3.1e38F}, {1, 2, 3, 4}};
            for (float& value : f.values) value = value < 5 ? (value - 2) * 1.6e38F : value;
            f.stripRows = round % 5;
            test::shade(f);
        }
    });
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("ogic error")));
}

TEST_F(Shading, ShadesClassesAsLevels) {
    std::mt19937 random(8);
    for (int round = 0; round < 50; ++round) {
        Field f{test::steppedField(random, 14, 11, 6, 9), 14, 11, {0, 1, 2, 3}, {0, 1, 2, 3}, round % 4};
        const test::Block expected = test::shade(f);
        const test::Block got(velmarCntrShadJ(f.values.data(), 14, 11, 4, 9999, 1, 1, 1, 1, f.stripRows));
        ASSERT_TRUE(got && expected && got[0] == expected[0]);
        EXPECT_TRUE(std::equal(got.get(), got.get() + static_cast<int>(got[0]), expected.get()));
    }
    const std::vector<float> grid(9, 1);
    const auto ofClasses = [&](int count) {
        return test::Block(velmarCntrShadJ(grid.data(), 3, 3, count, 9999, 0, 0, 1, 1, 1));
    };
    for (const int classes : {0, -3, INT_MIN, 1000001, INT_MAX})
        EXPECT_EQ(ofClasses(classes), nullptr) << classes;
    EXPECT_NE(ofClasses(1000000), nullptr);
}

TEST_F(Shading, PlacesPolygonsByTables) {
    const Field f = around(0, {3}, {7});
    const auto place = [&](int nx) {
        const float xSteps[] = {100, 1, 2, 4, 8, 16};
        const float ySteps[] = {-50, 4, 8, 16, 32, 64};
        return test::Block(velmarCntrShadD(f.values.data(), nx, 5, f.levels.data(), f.colours.data(), 1, 9999,
                                           0, xSteps, ySteps));
    };
    EXPECT_EQ(place(2), nullptr) << "a trace outgrows the point buffer";
    const test::Block block = place(5);
    std::vector<float> rest;
    const auto placed = test::polygonsOf(block, &rest);
    ASSERT_EQ(placed.size(), 2U);
    EXPECT_EQ(placed[0].points[0], (test::Position{100, -50}));
    EXPECT_EQ(placed[0].points[2], (test::Position{103, -50}));
    EXPECT_EQ(placed[0].points[8], (test::Position{115, 10}));
    const Polygon hole{3, 0, {{107, -34}, {113, -22}, {107, 2}, {104, -22}, {107, -34}}};
    EXPECT_EQ(placed[1], hole) << "one column and row too far";
    rest.resize(9);
    EXPECT_THAT(rest, ElementsAre(-1, 5, 5, 0, 0, 4, 4, 1, 1));
}

}  // namespace
