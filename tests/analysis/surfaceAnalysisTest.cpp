#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysis/stationTexts.h"

namespace {

using namespace velmar;
using test::analysedGrid;
using test::Block;
using test::reportsOf;
using test::said;
using test::surfaceText;
using test::TemporaryFile;
using test::textOf;
using testing::Each;
using testing::EndsWith;
using testing::HasSubstr;

constexpr const char* diagnosticFile = "OAtestC.000";

Block analyse(const std::string& text, int method, int element, float maskRadius = 0) {
    return Block(OAReadVelmar1(TemporaryFile(text).path().c_str(), method, element, 0, 100.25F, 127.25F, 31,
                               33, 1, 3.75F, maskRadius));
}

std::vector<float> grid(const Block& block) {
    if (!block) return {};
    return {block.get(), block.get() + 24};
}

using SurfaceFiles = test::StationFiles;

TEST_F(SurfaceFiles, LeaveOutTheLastReportAndTheLastStation) {
    const TemporaryFile file(surfaceText(reportsOf(20, {"5", "-7.5", "6", "8", "99"}), "9"));
    const auto call = [&] {
        const Block block(OAReadVelmar1(file.path().c_str(), 0, 1, 0, 100.25F, 127.25F, 31, 33, 1, 3.75F, 0));
        EXPECT_EQ(grid(block),
                  analysedGrid(0, {100.5F, 102, 103.5F}, {31.25F, 32.25F, 33.25F}, {5, -7.5F, 6}));
    };
    EXPECT_EQ(said(call),
              "Open and read file: " + file.path() +
                  "\nThere are 9 stations\nThere are 5 stations have value\n3 8.000000 -7.500000\n"
                  "\xCD\xF8\xB8\xF1\xBB\xAF..100.250000 127.250000. 9\n");
    EXPECT_THAT(textOf(diagnosticFile),
                HasSubstr("\n3.750000 1.000000 100.250000 127.250000 31.000000 33.000000\n"
                          "8 3 5.000000 -7.5 8.0 0 0.0\n"));
}

TEST_F(SurfaceFiles, LetValuesAndPositionsFallOutOfStep) {
    const std::string text = surfaceText(reportsOf(20, {"5", "9999.9", "6", "999999", "8", "7", "1"}));
    const std::vector<float> lon{100.5F, 102, 103.5F}, lat{31.25F, 32.25F, 33.25F}, value{5, 6, 8};
    for (const int method : {0, 1})  // Barnes's analysis lies between whole degrees.
        for (const float mask : {0.0F, 2.0F})
            EXPECT_EQ(grid(analyse(text, method, 1, mask)), analysedGrid(method, lon, lat, value, mask));
}

TEST_F(SurfaceFiles, AreSearchedForOneElement) {
    const std::vector<float> lon{100.5F}, lat{31.25F};
    const std::vector<std::pair<int, int>> fields{{1, 20}, {2, 8}, {3, 8}, {4, 8}};
    for (const auto& [element, field] : fields)
        EXPECT_EQ(grid(analyse(surfaceText(reportsOf(field, {"5", "6", "7"})), 0, element)),
                  analysedGrid(0, lon, lat, {5}))
            << element;
    EXPECT_EQ(grid(analyse(surfaceText(reportsOf(13, {"9999", "6", "7", "8"})), 0, 0)),
              analysedGrid(0, {100.5F, 102}, {31.25F, 32.25F}, {-1, 6}))
        << "a station of -1, not one without a value";
    for (const int element : {-1, 5})
        EXPECT_THAT(grid(analyse(surfaceText(reportsOf(8, {"5", "6", "7"})), 0, element)), Each(-9999));
}

TEST_F(SurfaceFiles, TellOfVerySmallValues) {
    const std::string text = surfaceText(reportsOf(8, {"5", "9999", "-1000.5", "6", "7"}));
    EXPECT_THAT(said([&] { analyse(text, 2, 4); }),
                EndsWith("\n1 2 -1000.500000 7020.000000\n2 3 -1000.500000 7020.000000\n"
                         "2 6.000000 -1000.500000\n"));
}

TEST_F(SurfaceFiles, FitBoundsRoundTheStations) {
    const auto header = [](float lon, float lat) {
        std::vector<test::Report> reports(4, {lon, lat, {{20, "1"}}});
        reports[1] = {lon + 9.5F, lat + 3.5F, {{20, "2"}}};
        reports[2] = {lon - 70, lat, {{20, "9999"}}};  // no value
        reports[3] = {lon, lat + 70, {{20, "2"}}};     // the last is not used
        const TemporaryFile file(surfaceText(reports));
        Block(OAReadVelmar1(file.path().c_str(), 0, 1, 7, 1, 2, 3, 4, 0.5F, 0.1F, 0));
        const std::string text = textOf(diagnosticFile);
        const std::size_t start = text.find("\n0.100000 0.500000 ") + 19;
        return text.substr(start, text.find(" 5.000000") - start);
    };
    EXPECT_EQ(header(70, 20), "69.000000 80.500000 19.000000 24.500000\n116 12") << "single precision";
    EXPECT_EQ(header(-5, -89.5F), "0.000000 5.500000 -90.000000 -85.000000\n56 11");
    EXPECT_EQ(header(350, 86), "349.000000 360.000000 85.000000 90.000000\n111 11");
}

TEST_F(SurfaceFiles, WithoutStationsGiveAnEmptyField) {
    std::string expected =
        "diamond 4 \xBF\xCD\xB9\xDB\xB7\xD6\xCE\xF6\xB3\xA1\n2006 6 2 8 0 1000\n"
        "3.750000 1.000000 100.250000 127.250000 31.000000 33.000000\n"
        "8 3 5.000000 10000000272564224.0 -10000000272564224.0 0 0.0\n";
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 8; ++column) expected += "-9999.00\n";
        expected += "\n";
    }
    for (const char* count : {"0", "-1", "2147483647"}) {
        const std::string text = surfaceText({}, count);
        EXPECT_THAT(said([&] { EXPECT_THAT(grid(analyse(text, 0, 1)), Each(-9999)); }),
                    HasSubstr("There are " + std::string(count) +
                              " stations\nThere are 1 stations have value\n-1 -10000000272564224.000000 "
                              "10000000272564224.000000\n"));
        EXPECT_EQ(textOf(diagnosticFile), expected);
    }
    EXPECT_THAT(grid(analyse(surfaceText(reportsOf(20, {"5", "6"})), 0, 1)), Each(-9999)) << "one station";
}

TEST_F(SurfaceFiles, GiveNoGridForUnknownMethodsAndEmptyAreas) {
    const std::string text = surfaceText(reportsOf(20, {"5", "6", "7"}));
    const TemporaryFile file(text);
    for (const int method : {-1, 2}) EXPECT_EQ(analyse(text, method, 1), nullptr);
    for (const int method : {0, 1})
        EXPECT_EQ(OAReadVelmar1(file.path().c_str(), method, 1, 0, 100, 90, 30, 35, 1, 1, 0), nullptr);
    EXPECT_TRUE(std::filesystem::is_empty("."));
}

TEST_F(SurfaceFiles, AreNotOverwrittenByWhatIsMadeOfThem) {
    const std::string text = surfaceText(reportsOf(20, {"5", "6", "7"}));
    for (const char* name : {"OAtestC.000", "OAtestttq.000"}) std::ofstream(name) << text;
    EXPECT_NE(Block(OAReadVelmar1("./OAtestC.000", 0, 1, 0, 100, 110, 30, 35, 1, 1, 0)), nullptr);
    EXPECT_NE(Block(ReadVelmar1Tqq("./OAtestttq.000", 0, 1, 0, 100, 110, 30, 35, 1, 1, 0)), nullptr);
    for (const char* name : {"OAtestC.000", "OAtestttq.000"}) EXPECT_EQ(textOf(name), text);
}

TEST_F(SurfaceFiles, ReportWhatIsWrong) {
    const auto expectCode = [](float code, const char* path) {
        EXPECT_EQ(Block(ReadVelmar1Tqq(path, 0, 0, 0, 0, 1, 0, 1, 1, 1, 1))[0], code);
        EXPECT_EQ(Block(OAReadVelmar1(path, 0, 0, 0, 0, 1, 0, 1, 1, 1, 0))[0], code);
    };
    const std::vector<std::pair<float, std::string>> files{{-2, ""},
                                                           {-2, "diamond x 1"},
                                                           {-3, "diamond 3 title"},
                                                           {-4, "diamond 1 title 2008 7 15 8"},
                                                           {-4, "diamond 1 title 2008 7 15 8 x"}};
    for (const auto& [code, text] : files) expectCode(code, TemporaryFile(text).path().c_str());
    testing::internal::CaptureStderr();
    EXPECT_EQ(said([&] { expectCode(-1, "no/such/file"); }), "");
    expectCode(-1, nullptr);
    std::string expected;
    for (int call = 0; call < 4; ++call) expected += "Cannot open data file.\n";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), expected);
}

TEST_F(SurfaceFiles, AreReadAsFarAsTheyGo) {
    const std::string text = surfaceText(reportsOf(20, {"5", "6", "7", "8"}), "2147483647");
    const auto reportsRead = [&](const std::string& damaged) {
        const std::string texts = said([&] { analyse(damaged, 0, 1); });
        const std::size_t end = texts.find(" stations have value");
        return end == std::string::npos ? 0 : texts[end - 1] - '0';
    };
    const std::size_t count = text.find("2147");
    int complete = 0;
    for (std::size_t length = 0; length <= text.size(); ++length) {
        if (length > 0 && text.substr(length - 1).starts_with("7024"))
            ++complete;  // its last field has begun
        const int expected = length <= count ? 0 : std::max(complete, 1);
        EXPECT_EQ(reportsRead(text.substr(0, length)), expected) << length;
        const int withGarbage = reportsRead(text.substr(0, length) + "\xFF\x80*" + text.substr(length));
        EXPECT_TRUE(length <= count || withGarbage == expected) << length;
    }
}

}  // namespace
