#include "contour/levels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/progress.h"
#include "support/files.h"
#include "support/said.h"

namespace {

using namespace velmar::contour;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();

std::vector<float> byInterval(float start, float end, float interval) {
    return chooseLevels({nullptr, 0, 0}, 9999, {LevelMode::interval, start, end, interval, {}, 0}).values;
}

/// Automatic levels of data that hold the given values.
Levels automatic(const std::vector<float>& data, int count) {
    velmar::base::setProgressEnabled(false);
    Levels levels = chooseLevels({data.data(), static_cast<int>(data.size()), 1}, 9999,
                                 {LevelMode::automatic, -77, 0, 0, {}, count});
    velmar::base::setProgressEnabled(true);
    return levels;
}

TEST(Levels, RunFromStartToEndByTheInterval) {
    EXPECT_THAT(byInterval(0, 100, 10), ElementsAre(0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100));
    EXPECT_EQ(byInterval(0, 95, 10).size(), 10U);
    EXPECT_THAT(byInterval(5, 5, 10), ElementsAre(5));
    EXPECT_THAT(byInterval(5, -50, 10), IsEmpty());
    EXPECT_EQ(byInterval(0, 1, 0.1F).size(), 10U) << "the count comes from unrounded arithmetic";
    EXPECT_THAT(byInterval(0.1F, 0.3F, 0.1F), ElementsAre(0.1F, 0.1F + 0.1F, 2 * 0.1F + 0.1F));
    EXPECT_THAT(byInterval(20, -20, -10), ElementsAre(20, 10, 0, -10, -20));
    for (const float interval : {0.0F, -5.0F, nan}) EXPECT_THAT(byInterval(0, 10, interval), IsEmpty());
}

TEST(Levels, BeyondAMillionAreNone) {
    EXPECT_EQ(byInterval(0, 999999, 1).size(), 1000000U);
    EXPECT_THAT(byInterval(0, 1000000, 1), IsEmpty());
    EXPECT_THAT(byInterval(0, infinity, 1), IsEmpty());
    EXPECT_THAT(automatic({0, 1}, 3000000).values, IsEmpty());
    EXPECT_THAT(automatic({-1, 1}, 1000000).values, IsEmpty()) << "both ways together";
    EXPECT_THAT(automatic({-1e-5F, 1}, 3000000).values, IsEmpty()) << "however few lie below zero";
}

TEST(AutomaticLevels, AreMultiplesOfARoundedInterval) {
    EXPECT_THAT(automatic({2, 38}, 10).values,
                ElementsAre(0, 3, 6, 9, 12, 15, 18, 21, 24, 27, 30, 33, 36, 39));
    EXPECT_THAT(automatic({1000, 1040}, 8).values,
                ElementsAre(1000, 1005, 1010, 1015, 1020, 1025, 1030, 1035, 1040));
    EXPECT_THAT(automatic({1, 375}, 10).values,
                ElementsAre(0, 40, 80, 120, 160, 200, 240, 280, 320, 360, 400));
    EXPECT_THAT(automatic({0, 950}, 10).values,
                ElementsAre(0, 100, 200, 300, 400, 500, 600, 700, 800, 900, 1000));
    EXPECT_THAT(automatic({0, 100, 9999}, 10).values,
                ElementsAre(0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100));
    EXPECT_THAT(automatic({5, 8}, 3).values, ElementsAre(5, 6, 7, 8))
        << "an interval of exactly 1 is rounded by 1";
    EXPECT_THAT(automatic({-85, -50}, 3).values, ElementsAre(-80, -70, -60, -50))
        << "the start is truncated upward";
}

TEST(AutomaticLevels, BelowOneKeepOneDigit) {
    const std::vector<float> levels = automatic({0, 0.5F}, 10).values;
    ASSERT_EQ(levels.size(), 11U);
    for (std::size_t k = 0; k < levels.size(); ++k) EXPECT_EQ(levels[k], static_cast<float>(k) * 0.05F);
    EXPECT_EQ(automatic({0, 0.0025F}, 1).values.at(1), 0.003F) << "the digit is rounded in single precision";
    EXPECT_EQ(automatic({0.25F, 1.25F}, 2).start, 0.2F) << "and so does the start in a range of up to 1";
}

TEST(AutomaticLevels, OfDataOnBothSidesOfZeroStartAtZero) {
    EXPECT_THAT(automatic({-35, 25}, 6).values, ElementsAre(0, 10, 20, 30, -10, -20, -30, -40));
    EXPECT_THAT(automatic({-10, 20}, 3).values, ElementsAre(0, 10, 20))
        << "one interval below zero is not enough";
    EXPECT_EQ(automatic({-35, 25}, 6).start, -77) << "the caller's start stays";
    EXPECT_EQ(automatic({0, 38}, 10).start, 0) << "zero is on neither side";
    EXPECT_THAT(automatic({-3, 0}, 3).values, ElementsAre(-3, -2, -1, 0));
}

TEST(AutomaticLevels, EndWhereTheIntervalRoundsToNothing) {
    EXPECT_THAT(automatic({5, 5}, 10).values, IsEmpty());
    EXPECT_THAT(automatic({5.25F, 5.25F}, 10).values, ElementsAre(5.2F));
    EXPECT_THAT(automatic({-4e-8F, 4e-8F}, 1).values, ElementsAre(0))
        << "8e-8 is written padded and rounds to 0";
    EXPECT_THAT(automatic({2, 38}, -10).values, ElementsAre(0)) << "a negative count";
    EXPECT_THAT(automatic({9999, 9999}, 10).values, IsEmpty());
    EXPECT_THAT(automatic({nan, nan}, 10).values, IsEmpty());
    EXPECT_THAT(automatic({5.25F, 5.25F}, 0).values, ElementsAre(5.2F)) << "0 / 0";
    EXPECT_THAT(automatic({0, 3e38F}, 1).values, IsEmpty()) << "an interval beyond the whole numbers";
    EXPECT_THAT(automatic({2, 38, infinity}, 10).values, IsEmpty());
}

/// What is printed while levels are chosen from data.
std::string toldOf(float smallest, float largest, int count) {
    const std::vector<float> grid{smallest, largest, smallest, largest};
    return velmar::test::said([&] {
        velmar::test::Block(contour2D(grid.data(), 9999, 2, 2, 1, 0, 0, 0, nullptr, count, 0, 0, 1, 1));
    });
}

TEST(AutomaticLevels, ArePrintedAsTheyAreChosen) {
    const std::string first = "\xD7\xEE\xB3\xF5\xBC\xE4\xB8\xF4\xD6\xB5";
    const std::string rounded = "\xBC\xE4\xB8\xF4\xBC\xC6\xCB\xE3";
    const std::string start = "  \xBF\xAA\xCA\xBC\xD6\xB5";
    const std::string counted = "  \xBC\xC6\xCB\xE3";
    const std::string line = "\xB7\xD6\xCE\xF6\xCF\xDF\xD6\xB5$f\n";
    EXPECT_EQ(toldOf(0.002F, 0.007F, 2),
              first + "0.002500 0.007000 0.002000\n\xC8\xB7\xB6\xA8\xCE\xBB\xCA\xFD" +
                  "12 0.0024999999 4\n\xC8\xB7\xB6\xA8\xB1\xB6\xCA\xFD 1000 0.003000\n" + rounded +
                  "0.003000 0.007000 0.002000\n  \xC8\xB7\xB6\xA8\xBF\xAA\xCA\xBC\xD6\xB5" +
                  "0.002000 1000 0.000200 0.002000\n" + start + "0.002000 0.007000 0\n" + counted +
                  "0.002000 0.007000 1\n" + counted + "0.005000 0.007000 2\n" + counted +
                  "0.008000 0.007000 3\n" + counted + "0.002000 0.002000 3\n" + line + counted +
                  "0.005000 0.005000 3\n" + line + counted + "0.008000 0.008000 3\n" + line);
    EXPECT_EQ(toldOf(-5, 3, 4), first + "2.000000 3.000000 -5.000000\n" + rounded +
                                    "2.000000 3.000000 -5.000000\n" + counted + "0.000000 3.000000 1\n" +
                                    counted + "2.000000 3.000000 2\n" + counted + "4.000000 3.000000 3\n" +
                                    line + line + line)
        << "the levels below zero are not told";
    EXPECT_EQ(toldOf(-8.5F, -5, 3), first + "1.166667 -5.000000 -8.500000\n" + rounded +
                                        "1.000000 -5.000000 -8.500000\n" + start + "0.000000 -5.000000 0\n")
        << "a start beyond the data";
}

TEST(ListedLevels, AreTakenAsTheyAre) {
    const std::vector<float> list{5, 3, 3};
    EXPECT_THAT(chooseLevels({nullptr, 0, 0}, 9999, {LevelMode::list, 0, 0, 0, list, 0}).values,
                ElementsAre(5, 3, 3));
    EXPECT_FALSE(levelMode(3).has_value());
    EXPECT_FALSE(levelMode(-1).has_value());
}

}  // namespace
