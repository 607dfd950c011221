#include <gtest/gtest.h>

#include <fstream>

#include "capi/state.h"
#include "support/files.h"
#include "support/ownFolder.h"

namespace {

using namespace velmar::test;

TEST(Polylines, HaveTheirPointsBehindFourIntegers) {
    const Block block = readWith(ReadVelmarData780, "any 780 coast\n1 2 3 4\n2\n100.5 30 101 31");
    EXPECT_EQ(elements(block, 10), (std::vector<float>{10, 1, 2, 3, 4, 2, 100.5F, 30, 101, 31}));
    EXPECT_EQ(elements(readWith(ReadVelmarData780, "any 780 coast 7 - 1 100.5 30"), 8),
              (std::vector<float>{8, 7, 0, 0, 0, 1, 100.5F, 30}));
    for (const char* type : {"777", "778"}) {
        const std::string head = "any " + std::string(type) + " coast 9 1.5 2.5 1 2 3 4 ";
        EXPECT_EQ(elements(readWith(ReadVelmarData777, head + "1 100.5 30"), 8),
                  (std::vector<float>{8, 1, 2, 3, 4, 1, 100.5F, 30}));
        EXPECT_EQ(readWith(ReadVelmarData780, head + "1 100.5 30"), nullptr);
        EXPECT_EQ(elements(readWith(ReadVelmarData777, head + "-1 100.5 30"), 6),
                  (std::vector<float>{6, 1, 2, 3, 4, 0}));
    }
    for (const char* text : {"", "any 781 x 1 2 3 4 1 5 6", "any 780 x 1 2 3 4", "any 780 x 1 2 3 4 2 5 6 7",
                             "any 780 x 1 2 3 4 2147483647 5 6"})
        EXPECT_EQ(readWith(ReadVelmarData780, text), nullptr) << text;
    EXPECT_EQ(readWith(ReadVelmarData777, "any 777 x 9 1.5 x"), nullptr);
    EXPECT_EQ(Block(ReadVelmarData780(sample("lines/madagascar.780").c_str()))[5], 251);
    EXPECT_EQ(Block(ReadVelmarData777(sample("lines/iceland.777").c_str()))[5], 453);
    EXPECT_EQ(Block(ReadVelmarData777(sample("lines/srilanka.778").c_str()))[5], 76);
    testing::internal::CaptureStderr();
    EXPECT_EQ(ReadVelmarData777("no/such/file"), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Cannot open map data file.\n");
}

/// A process returns the lines of its first map only: every test is a new process in this.
class Maps : public InOwnFolder {
protected:
    void SetUp() override {
        InOwnFolder::SetUp();
        velmar::capi::state().maps = {};
    }

    static constexpr const char* log = "C:\\readmap9.txt";
};

const std::string tenIntegers = " 0 0 0 0 0 0 0 0 0 0\n";
const std::string march = "March 9 world" + tenIntegers;
const std::string diamond = "diamond 9" + tenIntegers;
const std::string marchLines = "2 1 4 0 0 0 a coast\n-10 20 11 21\n1 2 7 0 0 0 b border\n12 22\n";

TEST_F(Maps, AreReadOnceInAProcess) {
    const Block first = readWith(ReadMap9, march + marchLines);
    EXPECT_EQ(elements(first, 14), (std::vector<float>{13, 2, 2, 1, 4, 350, 20, 11, 21, 1, 2, 7, 12, 22}));
    EXPECT_EQ(textOf(log),
              "read data 2 coast\nread data 1 border\nwrite to memory...\n"
              "\xCA\xFD\xD7\xE9\xB4\xF3\xD0\xA1 13\nwrite line ... 2\nwrite line ... 1\ndelete memory\n"
              "deete line ...2\ndeete line ...1\ndelete memory end\n");
    // The second map is counted, but only zeros stand where its lines would. It is where the log would be.
    std::ofstream(log) << march + marchLines;
    EXPECT_EQ(elements(Block(ReadMap9(log)), 14),
              (std::vector<float>{13, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(textOf(log), march + marchLines);
}

TEST_F(Maps, OfTheDiamondFormAreNotCounted) {
    const Block block = readWith(ReadMap9, diamond + "2 land 1 2 3\n1 2 3 4\n1 sea 4 5 6\n-1 0\n");
    EXPECT_EQ(elements(block, 14), (std::vector<float>{1, 0, 2, 1, 0, 1, 2, 3, 4, 1, 1, 0, 359, 0}));
    EXPECT_EQ(elements(readWith(ReadMap9, diamond), 2), (std::vector<float>{1, 0}));
}

TEST_F(Maps, ThatBreakOffLeaveTheirLinesToTheNext) {
    EXPECT_EQ(readWith(ReadMap9, march + marchLines + "3 1 1 0 0"), nullptr);
    // A host can step through as many lines as are counted: two without points follow.
    const std::string empty = "0 1 1 0 0 0 a b ";
    const Block next = readWith(ReadMap9, march + empty + empty + empty + empty);
    EXPECT_EQ(elements(next, 20),
              (std::vector<float>{13, 4, 2, 1, 4, 350, 20, 11, 21, 1, 2, 7, 12, 22, 0, 0, 0, 0, 0, 0}));
}

TEST_F(Maps, MustBeWhole) {
    for (const std::string& text :
         {std::string(), "diamond 8" + tenIntegers, "diamonds 9" + tenIntegers, std::string("March 9"),
          std::string("diamond 9 1 2 3 4 5 6 7 8 9"), diamond + "x", diamond + "1 LAND 1 2 3 4 5",
          diamond + "2147483647 land 1 2 3 4 5", march + "2 1 1 0 0 0 a b 1 2 3"})
        EXPECT_EQ(readWith(ReadMap9, text), nullptr) << text;
    velmar::capi::state().maps = {};
    EXPECT_EQ(elements(readWith(ReadMap9, march + "-5 1 1 0 0 0 a b"), 5),
              (std::vector<float>{4, 1, 0, 1, 1}));
    testing::internal::CaptureStderr();
    EXPECT_EQ(ReadMap9("no/such/file"), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Cannot open map data file.\n");
    deleteMap9Ptr(nullptr);
}

TEST_F(Maps, OfTheWorldAreWhole) {
    float* const block = ReadMap9(sample("lines/map_world.009").c_str());
    EXPECT_EQ(block[1], 595);
    EXPECT_EQ(block[0], 3 * 595 + 2 * 8246 + 1);
    deleteMap9Ptr(block);
}

}  // namespace
