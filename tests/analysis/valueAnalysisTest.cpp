#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysis/stationTexts.h"

namespace {

using namespace velmar;
using test::all;
using test::Block;
using test::said;
using test::TemporaryFile;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string total = "\xD7\xDC\xD5\xBE\xB5\xE3\xCA\xFD";
const std::string size = "\xB7\xB5\xBB\xD8\xCA\xFD\xD7\xE9\xB4\xF3\xD0\xA1 ";
const std::string gridding = "\xCD\xF8\xB8\xF1\xBB\xAF..";
const std::string opened = "\xB4\xF2\xBF\xAA\xCE\xC4\xBC\xFE";

std::string valueText(const std::string& stations, const std::string& counts = "1 4",
                      const std::string& levels = "2\n10 20.5\n",
                      const std::string& boundary = "1 0 2 1 2 3 4") {
    return "any 3 title\n2008 7 15 8 0 " + levels + boundary + "\n" + counts + "\n" + stations;
}

const std::string four = "1 100 30 50 1.5\n2 101 31 60 9999\n3 102 32.5 70 2.5\n4 103 31 80 3.5\n";

Block read(const std::string& text, int method, bool fitted = false, float endLat = 33,
           float maskRadius = 0) {
    return Block(OAReadVelmar3(TemporaryFile(text).path().c_str(), method, fitted ? 1 : 0, 100.25F, 127.25F,
                               31, endLat, 1, 3.75F, maskRadius));
}

std::vector<float> last(const Block& block, std::size_t n) {
    const std::vector<float> elements = all(block);
    return {elements.end() - static_cast<std::ptrdiff_t>(n), elements.end()};
}

using ValueFiles = test::StationFiles;

TEST_F(ValueFiles, GiveLevelsStationsAndGrid) {
    EXPECT_THAT(all(read(valueText(four), -1)),
                ElementsAre(28, 3, 0, 0, 100.25F, 127.25F, 31, 33, 3.75F, 1, 2, 10, 20.5F,  //
                            1, 50, 100, 30, 1.5F, 3, 70, 102, 32.5F, 2.5F, 4, 80, 103, 31, 3.5F));
    for (const char* none : {"0 ", "-3 "})
        EXPECT_THAT(all(read(valueText("7 1 2 3 4", "1 1", none, "1 0 -2"), -5)),
                    ElementsAre(16, 1, 0, 0, 100.25F, 127.25F, 31, 33, 3.75F, 1, 0, 7, 3, 1, 2, 4));
    const Block unknown = read(valueText(four), 2);
    EXPECT_EQ(unknown[0], 28 + 8 * 3);
    EXPECT_EQ(unknown[2], 8);
    EXPECT_EQ(unknown[3], 3);
    EXPECT_THAT(last(unknown, 8 * 3), Each(-1e20F));
    EXPECT_TRUE(std::filesystem::is_empty(".")) << "no diagnostic file";
}

TEST_F(ValueFiles, AreAnalysed) {
    const std::vector<float> lon{100, 102, 103}, lat{30, 32.5F, 31}, value{1.5F, 2.5F, 3.5F};
    for (const int method : {0, 1})
        for (const float mask : {0.0F, 2.0F})
            EXPECT_EQ(last(read(valueText(four), method, false, 33, mask), 24),
                      test::analysedGrid(method, lon, lat, value, mask, 10));

    const TemporaryFile file(valueText(four));
    const auto call = [&](int method) {
        return said([&] { Block(OAReadVelmar3(file.path().c_str(), method, 0, 100, 104, 30, 33, 1, 2, 0)); });
    };
    const std::string start = opened + file.path() + "\n" + total + "4\n";
    EXPECT_EQ(call(0), start + gridding + "100.000000 104.000000. 3 3 4\n" + size + "40\n");
    EXPECT_THAT(call(1), HasSubstr(start + "\xBC\xC6\xCB\xE3\xB5\xDA\xD2\xBB\xB2\xC2\xB2\xE2\xB3\xA1\n"));
    EXPECT_EQ(call(-1), start + size + "28\n");
}

TEST_F(ValueFiles, KeepTheirPresetGridWhenThereIsNoAnalysis) {
    // Values that add up to -9999 have no Cressman analysis.
    const Block sum = read(valueText("1 101 31 0 -5000\n2 102 32 0 -4999\n", "1 2"), 0);
    EXPECT_EQ(sum[0], 23 + 24);
    EXPECT_THAT(last(sum, 24), Each(-1e20F));
    for (const int method : {0, 1, 2}) {
        const Block empty = read(valueText(four), method, false, 20);
        EXPECT_EQ(empty[0], 28);
        EXPECT_EQ(empty[3], -10);
    }
}

TEST_F(ValueFiles, FitBoundsRoundAllStations) {
    const auto bounds = [](const std::string& stations, const std::string& counts = "1 3") {
        const std::vector<float> elements = all(read(valueText(stations, counts), 2, true));
        return std::vector<float>(elements.begin() + 4, elements.begin() + 8);
    };
    EXPECT_THAT(bounds("1 100 30 0 1 2 90.5 55 0 9999 3 99 30 0 1"), ElementsAre(89.5F, 101, 29, 56))
        << "also those without a value";
    EXPECT_THAT(bounds("1 100 30 0 1 2 120 x"), ElementsAre(99, 121, 29, 31)) << "and parts of a station";
    EXPECT_THAT(bounds("1 100 30 0 1 2"), ElementsAre(99, 101, 29, 31));
    EXPECT_THAT(bounds("1 -50 89.5 0 1 2 359.5 -89.5 0 9999.5 3 0 0 0 1"), ElementsAre(0, 360, -90, 90));
}

TEST_F(ValueFiles, ThatAreCutOffCountStationsWithoutValue) {
    const auto behind = [](const std::string& rest, std::size_t stations) {
        const Block block = read(valueText("1 100 30 50 1.5\n" + rest, "1 2147483647"), -1);
        EXPECT_EQ(block[1], static_cast<float>(stations));
        return last(block, 5 * (stations - 1));
    };
    EXPECT_THAT(behind("2 101 31 60 9999\n3 102 32 70 9999", 3),
                ElementsAre(3, 70, 102, 32, 9999, 0, 0, 0, 0, 0))
        << "the last one without a value";
    EXPECT_THAT(behind("2 101 31 60 9999\n5 104 x", 2), ElementsAre(5, 60, 104, 31, 9999))
        << "and what there is of one that is cut off";
    EXPECT_THAT(behind("2 101 31 60 9999\n3 102 32 70 2.5\n5 104 x", 3),
                ElementsAre(3, 70, 102, 32, 2.5F, 5, 0, 104, 0, 0));
}

TEST_F(ValueFiles, ReportWhatIsWrong) {
    const auto expectCode = [](int code, const std::string& text, const std::string& texts) {
        const TemporaryFile file(text);
        const std::string expected = opened + file.path() + "\n" + texts;
        EXPECT_EQ(said([&] {
                      EXPECT_EQ(Block(OAReadVelmar3(file.path().c_str(), 1, 0, 0, 9, 0, 9, 1, 1, 0))[0],
                                code);
                  }),
                  expected)
            << text;
    };
    const auto part = [](int number) {
        return std::string("\xB6\xC1\xCE\xC4\xBC\xFE\xB4\xED\xCE\xF3").append(std::to_string(number)) + "\n";
    };
    expectCode(-2, "diamond 3", part(1));
    expectCode(-3, "diamond 4 title", part(2));
    expectCode(-4, "diamond 3 title 2008 7 15 8 0", part(3));
    for (const char* levels : {"2 1 x ", "1", "2147483647 1 2 3 "})
        expectCode(-5, "diamond 3 title 2008 7 15 8 0 " + std::string(levels), part(4));
    expectCode(-6, valueText("", "", "0 ", "1 0 x"), part(5));
    for (const char* boundary : {"1 0 2 1 2 3", "1 0 2147483647 1 2 3 4"})
        expectCode(-7, valueText("", "", "0 ", boundary), part(6));
    expectCode(-8, valueText("", "2 4"), total + "4\n");
    expectCode(-8, valueText("", "3"), total + "0\n");
    expectCode(-8, valueText("", ""), total + "0\n");
    expectCode(-9, valueText("", "1"), total + "0\n");
    testing::internal::CaptureStderr();
    EXPECT_EQ(Block(OAReadVelmar3("no/such/file", 0, 0, 0, 1, 0, 1, 1, 1, 0))[0], -1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Cannot open wind data file.\n");
}

TEST_F(ValueFiles, ThatAreDamagedAreReadAsFarAsTheyGo) {
    const std::string text = valueText(four, "1 2147483647");
    for (std::size_t length = 0; length < text.size(); ++length) {
        for (const std::string& rest :
             {std::string(), "\xFF\x80*" + text.substr(length), std::string(5, '\0')}) {
            const Block block = read(text.substr(0, length) + rest, 0, true);
            ASSERT_NE(block, nullptr);
            EXPECT_TRUE(block[0] >= 11 || (block[0] <= -2 && block[0] >= -9)) << length;
        }
    }
    EXPECT_EQ(read(valueText(four, "1 -1"), -1)[1], 0);
}

}  // namespace
