#include <gtest/gtest.h>

#include "support/files.h"
#include "support/said.h"

namespace {

using namespace velmar::test;

TEST(Reports, AreHandedOnAsTheyStand) {
    EXPECT_EQ(elements(readWith(ReadVelmarData16, "diamond 16 heights 2\n1 100 30 5\n2 101 31 6.5"), 9),
              (std::vector<float>{2, 1, 100, 30, 5, 2, 101, 31, 6.5F}));
    EXPECT_EQ(elements(readWith(ReadVelmarData2, "any 0 upper 11 10 8 0 500 1\n1 2 3 4 5 6 7 8 9 10"), 16),
              (std::vector<float>{11, 10, 8, 0, 500, 1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_EQ(elements(readWith(ReadVelmarData8, "any 0 city 11 10 8 0 24 1 1 2 3 4 5 6 7 8 9 10 11 12"), 18),
              (std::vector<float>{11, 10, 8, 0, 24, 1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
}

TEST(Reports, OfTheSurfaceHaveExtraValuesWhereTheySaySo) {
    const std::string fields = "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 ";
    const std::string header = "diamond 1 surface 95 3 18 20 ";
    const Block block = readWith(
        ReadVelmarData1, header + "3\n" + fields + "1 2 -0.5 0.7\n" + fields + "0 0\n" + fields + "1 1\n");
    EXPECT_EQ(elements(block, 7), (std::vector<float>{95, 3, 18, 20, 3, 1, 2}));
    EXPECT_EQ(block[5 + 24], -0.5F);
    EXPECT_EQ(block[5 + 25], 0.7F);
    EXPECT_EQ(block[5 + 26], 1);
    EXPECT_EQ(block[5 + 26 + 24], 9999);
    EXPECT_EQ(block[5 + 2 * 26 + 25], 9999);
    // A report whose extra values are cut off does not count.
    EXPECT_EQ(readWith(ReadVelmarData1, header + "3\n" + fields + "0 0 " + fields + "1 2 7")[4], 1);
}

TEST(Reports, AreCountedAsFarAsTheyGo) {
    const std::string three = " 1 2 3 4 5 6 7 8 9 10  1 2 3 4 5 6 7 8 9 10  1 2 3 4 5 6 7 8 9 10 x";
    const auto file = [](const std::string& countAndRows) {
        return readWith(ReadVelmarData2, "diamond 2 upper 11 10 8 0 500 " + countAndRows);
    };
    EXPECT_EQ(file("10" + three)[5], 3);
    EXPECT_EQ(file("2147483647" + three)[5], 3);
    EXPECT_EQ(file("2" + three)[5], 2);
    EXPECT_EQ(file("10 x"), nullptr);
    EXPECT_EQ(file("-4" + three)[5], -4);
    EXPECT_EQ(file("x" + three), nullptr);
    EXPECT_EQ(Block(ReadVelmarData8("no/such/file")), nullptr);
    EXPECT_EQ(Block(ReadVelmarData16(nullptr)), nullptr);
}

TEST(Reports, OfRealFilesAreComplete) {
    const Block surface(ReadVelmarData1(sample("stations/sfc_95031820.000").c_str()));
    EXPECT_EQ(surface[4], 1067);
    const Block extra(ReadVelmarData1(sample("stations/sfc_extra_95031902.000").c_str()));
    EXPECT_EQ(extra[4], 169);
    int withExtras = 0;
    for (std::size_t k = 0; k < 169; ++k) withExtras += extra[5 + 26 * k + 24] != 9999 ? 1 : 0;
    EXPECT_GT(withExtras, 90);
    EXPECT_EQ(Block(ReadVelmarData2(sample("stations/upper500_cities.000").c_str()))[5], 202);
    EXPECT_EQ(Block(ReadVelmarData8(sample("stations/forecast_capitals.000").c_str()))[5], 50);
    EXPECT_EQ(Block(ReadVelmarData16(sample("stations/heights_north.000").c_str()))[0], 89);
}

const std::string valuesHead = "diamond 3 rain\n08 7 15 8 -1\n2 10 20\n1 5 2 70 30 71 31\n";

TEST(StationValues, StandBetweenLevelsAndBoundary) {
    Block block;
    EXPECT_EQ(said([&] {
                  block = readWith(ReadVelmarData3, valuesHead + "3 2\n7 100 30 12 1 2 3 8 101 31 13 4 5 6");
              }),
              "\xD7\xDC\xD5\xBE\xB5\xE3\xCA\xFD"
              "2\n");
    EXPECT_EQ(elements(block, 29),
              (std::vector<float>{8, 7, 15, 8,   -1, 3,  2, 2, 10, 20, 7,  100, 30, 12, 1,
                                  2, 3, 8,  101, 31, 13, 4, 5, 6,  2,  70, 30,  71, 31}));
    // Two of three stations, and each lacks a value.
    block = readWith(ReadVelmarData3, valuesHead + "3 3\n7 100 30 12 1 - 3 8 101 31 13 4 5 x");
    EXPECT_EQ(elements(block, 29),
              (std::vector<float>{8, 7, 15, 8,   -1, 3,  2, 2, 10, 20, 7,  100, 30, 12, 1,
                                  0, 3, 8,  101, 31, 13, 4, 5, 0,  2,  70, 30,  71, 31}));
    const Block real(ReadVelmarData3(sample("stations/three_values_95031902.000").c_str()));
    EXPECT_EQ(real[5], 3);
    EXPECT_EQ(real[6], 176);
}

TEST(StationValues, MayPromiseAnything) {
    const std::string station = " 7 100 30 12 1";
    const auto stations = [&](const std::string& counts) {
        return readWith(ReadVelmarData3, valuesHead + counts + station)[6];
    };
    EXPECT_EQ(stations("1 2147483647"), 1);
    EXPECT_EQ(stations("1 -1"), 0);
    EXPECT_EQ(stations("2147483647 2147483647"), 0);
    // The block has no more elements than the file has bytes.
    const std::size_t bytes = valuesHead.size() + 4 + station.size();
    EXPECT_EQ(stations(std::to_string(bytes - 19) + " 1"), 1);
    EXPECT_EQ(stations(std::to_string(bytes - 18) + " 1"), 0);
    // Without values a station is its place.
    for (const int values : {0, -3})
        EXPECT_EQ(
            elements(readWith(ReadVelmarData3, valuesHead + std::to_string(values) + " 1" + station), 16),
            (std::vector<float>{8, 7, 15, 8, -1, static_cast<float>(values), 1, 2, 10, 20, 7, 100, 30, 12, 2,
                                70}));
}

TEST(StationValues, FailWithTheirCodes) {
    const std::string unreadable = "\xB6\xC1\xCE\xC4\xBC\xFE\xB4\xED\xCE\xF3";
    const std::string total = "\xD7\xDC\xD5\xBE\xB5\xE3\xCA\xFD";
    const auto code = [](const std::string& text, const std::string& expected) {
        Block block;
        EXPECT_EQ(said([&] { block = readWith(ReadVelmarData3, text); }), expected + "\n");
        return block[0];
    };
    EXPECT_EQ(code("diamond 3", unreadable + "1"), -2);
    EXPECT_EQ(code("diamond 4 x", unreadable + "2"), -3);
    EXPECT_EQ(code("diamond 3 x 1 2 3 4 5 x", unreadable + "3"), -4);
    EXPECT_EQ(code("diamond 3 x 1 2 3 4 5 2 1 x", unreadable + "4"), -5);
    EXPECT_EQ(code("diamond 3 x 1 2 3 4 5 0 1 1 x", unreadable + "5"), -6);
    EXPECT_EQ(code("diamond 3 x 1 2 3 4 5 0 1 1 1 5 x", unreadable + "6"), -7);
    EXPECT_EQ(code("diamond 3 x 1 2 3 4 5 0 1 1 0 5 x", total + "0"), -9);
    testing::internal::CaptureStderr();
    EXPECT_EQ(Block(ReadVelmarData3("no/such/file"))[0], -1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Cannot open wind data file.\n");
}

}  // namespace
