#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "contour/plain.h"
#include "support/fields.h"
#include "support/files.h"

namespace {

using namespace velmar;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::NanSensitiveFloatEq;

std::vector<float> centersOf(const std::vector<float>& grid, int nx, int ny) {
    const test::Block block(findCenters(grid.data(), 9999, nx, ny, 0, 70, 10, 2.5F, -2));
    return {block.get(), block.get() + 7 * static_cast<std::size_t>(block[0]) + 2};
}

TEST(Centers, EqualThePlainWay) {
    std::mt19937 random(5);
    for (int round = 0; round < 1500; ++round) {
        const int nx = 1 + static_cast<int>(random() % 20);
        const int ny = 1 + static_cast<int>(random() % 20);
        const bool smooth = round % 3 == 0;
        auto field = smooth ? test::smoothField(random, nx, ny)
                            : test::steppedField(random, nx, ny, 2 + static_cast<unsigned>(random() % 90), 9);
        if (round % 5 == 0) field[random() % field.size()] = std::nanf("");
        std::vector<testing::Matcher<float>> expected;
        for (const float value : test::plainCenters({field.data(), nx, ny}, 9999, 70, 10, 2.5F, -2)) {
            expected.emplace_back(NanSensitiveFloatEq(value));
        }
        ASSERT_THAT(centersOf(field, nx, ny), ElementsAreArray(expected));
    }
}

TEST(Centers, MeasureStrengthInFourDirections) {
    const std::vector<float> grid{9, 9, 9, 9, 9,  //
                                  9, 8, 7, 8, 9,  //
                                  9, 6, 0, 8, 9,  //
                                  9, 8, 7, 8, 9,  //
                                  9, 9, 9, 9, 9};
    // West (-6 -3), east (-8 -1) and south (-7 -2) reach the edge and keep their sums; north stops after -7.
    EXPECT_THAT(centersOf(grid, 5, 5), ElementsAre(1, -1, 75, 6, 0, -34.0F / 9, 7, -6, 0));
}

TEST(Centers, OfLowsAreNotComparedWithTheSouthWest) {
    const std::vector<float> low{0, 9, 9, 9, 1, 9, 9, 9, 9};
    EXPECT_THAT(centersOf(low, 3, 3), ElementsAre(1, -1, 72.5F, 8, 1, testing::_, testing::_, testing::_, 0));
    const std::vector<float> high{9, 0, 0, 0, 8, 0, 0, 0, 0};
    EXPECT_THAT(centersOf(high, 3, 3), ElementsAre(0, 0));
}

TEST(Centers, MayEqualTheirEastNeighbourOnly) {
    const std::vector<float> east{0, 0, 0, 0, 0, 5, 5, 0, 0, 0, 0, 0};
    const auto found = centersOf(east, 4, 3);
    EXPECT_EQ(found[0], 1);
    EXPECT_TRUE(std::isnan(found[5])) << "the walk to the east has nothing to average";
    EXPECT_EQ(found[7], 0) << "and the strength no class";
    const std::vector<float> north{0, 0, 0, 0, 5, 0, 0, 5, 0, 0, 0, 0};
    EXPECT_THAT(centersOf(north, 3, 4), ElementsAre(0, 0));
}

TEST(Centers, NeedAnInnerPoint) {
    EXPECT_THAT(centersOf({}, -1, 5), ElementsAre(0, 0));
    EXPECT_EQ(findCenters(nullptr, 9999, 3, 3, 0, 0, 0, 1, 1), nullptr);
}

}  // namespace
