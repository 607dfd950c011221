#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tuple>

#include "capi/state.h"
#include "support/files.h"
#include "support/said.h"

namespace {

using namespace velmar::test;

const velmar::files::SoundingFile& soundings(const std::string& text) {
    EXPECT_EQ(readVelmarData5(TemporaryFile(text).path().c_str()), 0);
    return velmar::capi::state().soundings;
}

TEST(Soundings, GiveFreezingLevelAndIndices) {
    // The walk ends below 500 hPa, so the temperature there is the 0 that values start with; the second sounding is
    // frozen, and notes all; the third lacks 500 hPa, and takes it from the second.
    const auto& file = soundings(
        "diamond 5 x 8 7 15 8 3\n"
        "1 100 30 5 30  1000 100 20 18 0 0  850 1500 10 8 0 0  700 3000 2 -4 0 0  600 4200 -4 -9 0 0  500 "
        "5600 -9 -30 0 0\n"
        "2 101 31 5 24  950 500 -1 -2 0 0  850 1400 -4 -6 0 0  700 2800 -9 -12 0 0  500 5200 -20 -30 0 0\n"
        "3 102 32 5 18  1000 100 20 18 0 0  850 1500 10 8 0 0  700 3000 2 -4 0 0\n");
    EXPECT_EQ(file.year, 2008);
    ASSERT_EQ(file.soundings.size(), 3U);
    const auto& [warm, frozen, high] = std::tie(file.soundings[0], file.soundings[1], file.soundings[2]);
    EXPECT_FLOAT_EQ(warm.freezingHeight, 3400);
    EXPECT_NEAR(warm.freezingPressure, std::exp((std::log(0.7) * 4 + std::log(0.6) * 2) / 6) * 1000, 0.01);
    EXPECT_EQ(warm.kIndex, 10 - 0 + 8 - (2 + 4));
    EXPECT_EQ(warm.totalTotals, 18);
    EXPECT_EQ(frozen.freezingHeight, 500);
    EXPECT_EQ(frozen.freezingPressure, 950);
    EXPECT_EQ(frozen.kIndex, -4 + 20 - 6 - 3);
    EXPECT_EQ(frozen.totalTotals, -10 + 40);
    EXPECT_EQ(high.freezingHeight, 0);
    EXPECT_EQ(high.totalTotals, 18 + 40);
    EXPECT_EQ(high.levels[1].dewPoint, 8);
    EXPECT_EQ(high.levels.capacity(), 3U) << "only what it holds stays";
}

TEST(Soundings, AreReadAsFarAsTheyGo) {
    EXPECT_TRUE(soundings("diamond 4 x 8 7 15 8 1").soundings.empty());
    EXPECT_TRUE(soundings("Diamond 5 x 8 7 15 8 1").soundings.empty());
    EXPECT_TRUE(soundings("diamond 5 x 8 7 15 8 0").soundings.empty());
    EXPECT_TRUE(soundings("diamond 5 x 8").soundings.empty());
    // A sounding that lacks a number is neither told nor kept, nor is what follows taken for soundings.
    const std::string lone = "March 5 x 100 7 15 8 2147483647 44 1 1 1 -6 ";
    for (const char* broken :
         {"45 1", "45 1 1 1 12 1 2 3 4 5 6 1 2 - 4 5 6 46 1 1 1 0", "45 1 1 1 2147483647 1 2"}) {
        TemporaryFile file(lone + broken);
        EXPECT_EQ(said([&] { readVelmarData5(file.path().c_str()); }),
                  "read file " + file.path() + "\nCalculate parameters....44\n");
        EXPECT_EQ(velmar::capi::state().soundings.soundings.size(), 1U);
    }
    EXPECT_EQ(velmar::capi::state().soundings.year, 100);
    testing::internal::CaptureStderr();
    EXPECT_EQ(readVelmarData5(nullptr), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Cannot open map data file.\n");
    EXPECT_EQ(readVelmarData5(sample("soundings/sounding_11101100.000").c_str()), 0);
    EXPECT_EQ(velmar::capi::state().soundings.soundings.size(), 12U);
}

}  // namespace
