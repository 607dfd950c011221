#include <gmock/gmock.h>

#include <array>

#include "chart/paper.h"
#include "chart/prominence.h"
#include "text.h"

namespace {

using namespace velmar::tool;
using testing::ElementsAre;

TEST(Prominence, IsTheDropToTheHighestPass) {
    // A summit of 9, one of 7 behind a pass of 4, one of 6 behind a gap, and a shoulder of 5.
    const std::array<float, 9> ridge{1, 9, 5, 4, 7, 2, 9999, 6, 3};
    const velmar::frame::GridView grid{ridge.data(), 9, 1};
    EXPECT_THAT(prominences(grid, 1, false), ElementsAre(0, 8, 0, 0, 3, 0, 0, 0, 0));
    EXPECT_THAT(prominences(grid, -1, false)[3], 3);
    // Round the globe the last column is the first one: 6 leads to 3, and on to the ground beside 9.
    const std::array<float, 6> ring{5, 8, 1, 6, 4, 5};
    EXPECT_THAT(prominences({ring.data(), 6, 1}, 1, true), ElementsAre(0, 7, 0, 2, 0, 0));
}

TEST(TurnedBoxes, OverlapOnlyWhereTheyMeet) {
    const TurnedBox flat{{0, 0}, {40, 10}, 0};
    EXPECT_TRUE(overlap(flat, {{30, 0}, {40, 10}, 0}));
    EXPECT_FALSE(overlap(flat, {{41, 0}, {40, 10}, 0}));
    // Their upright hulls meet, they do not.
    const TurnedBox slanted{{0, 0}, {100, 10}, 0.785};
    EXPECT_FALSE(overlap(slanted, {{25, -25}, {20, 20}, 0}));
    EXPECT_TRUE(overlap(slanted, {{25, 25}, {20, 20}, 0}));
}

TEST(Texts, DegreesAndTimesReadAsAForecasterWritesThem) {
    EXPECT_EQ(longitudeText(240), "120°W");
    EXPECT_EQ(longitudeText(-180), "180°");
    EXPECT_EQ(longitudeText(360), "0°");
    EXPECT_EQ(latitudeText(-37.5), "37.5°S");
    EXPECT_EQ(plainNumber(-0.0), "0");
    EXPECT_EQ(writtenNumber(0.1F), 0.1);

    velmar::frame::FieldHeader field{};
    field.year = 2024;
    field.month = 2;
    field.day = 28;
    field.hour = 12;
    field.forecastHour = 36;
    EXPECT_EQ(validTimeText(field), "2024-03-01 00:00");
    field.day = 30;
    EXPECT_EQ(validTimeText(field), std::nullopt);
    EXPECT_EQ(startTimeText(field), "2024-2-30 12 h");
}

TEST(Texts, BrokenGbkIsMarkedAndNothingAfterItLost) {
    EXPECT_EQ(gbkToUtf8("\xB8\xDF\xB6\xC8"), "高度");
    EXPECT_EQ(gbkToUtf8("a\xFF"
                        "b\xB8\xDF\xB6"),
              "a�b高�");
    EXPECT_EQ(gbkToUtf8(std::string(1000, '\xB8') + "\xDF"), gbkToUtf8(std::string(1000, '\xB8')) + "�");
}

}  // namespace
