#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

#include "capi/state.h"
#include "files/byteImage.h"
#include "files/file.h"
#include "shade/shadingCall.h"
#include "support/said.h"
#include "support/samples.h"

namespace {

using namespace velmar;
using test::Block;
using test::Field;
using test::gridText;
using test::said;
using test::TemporaryFile;
using testing::ElementsAre;
using testing::StartsWith;

const std::string title = "\xCE\xC4\xBC\xFE\xB1\xEA\xCC\xE2 ";
const std::string end = "\xB6\xC1\xCE\xC4\xBC\xFE\xBD\xE1\xCA\xF8 \n";
const std::string sizeWarning = "You may be write a bad size information in March 13 type file\n";

Block shadeGrid(const std::string& text) {
    return Block(readCntrShadData(TemporaryFile(text).path().c_str(), 0, 1));
}

Block shadeImage(const std::string& bytes, int stripRows = 1, int mode = 1, float level = 0) {
    return Block(readByteShadData(TemporaryFile(bytes).path().c_str(), stripRows, mode, level));
}

/// A byte image, its columns 2 degrees apart from 2 to 9 degrees: three and a half steps.
std::string image(const std::string& pixels, const std::string& size = "4 3", int kind = 1,
                  const std::string& keyword = "March") {
    std::string header =
        keyword + " 13 T\xB1 2011 10 11 0 0 " + std::to_string(kind) + " 1 " + size + " 2 2 10 9 12 1 0 0";
    header.resize(149, ' ');
    return header + pixels;
}

std::vector<float> all(const Block& block) {
    if (!block) return {};
    return {block.get(), block.get() + static_cast<std::ptrdiff_t>(block[0])};
}

using ShadedFiles = test::SilentTest;

TEST_F(ShadedFiles, TakeTheLevelsOfTheirHeader) {
    const Field same{
        {0, 2, 3, 1, 5, 6, 9999, 1, 1}, 3, 3, {0.5F, 2, 3.5F}, {0, 1, 2}, 1, 9999, 0, 90, 2.5F, -2.5F};
    capi::state().lastBoldValue = 7;
    const auto text = [](const std::string& hints, int nx = 3) {
        return gridText(nx, 3, "2.5", "0 2 3 1 5 6 9999 1 1", hints);
    };
    EXPECT_EQ(all(shadeGrid(text("1.5 0.5 4 0 588"))), all(test::shade(same)));
    EXPECT_EQ(capi::state().lastBoldValue, 7) << "contour lines keep the bold value of their own files";
    EXPECT_EQ(shadeGrid(text("1 5 3 0 0")), nullptr) << "no level";
    EXPECT_NE(shadeGrid(text("-1 9999 0 0 0")), nullptr) << "10,000 levels";
    EXPECT_EQ(shadeGrid(text("-1 10000 0 0 0")), nullptr) << "one too many";
    EXPECT_EQ(shadeGrid(text("1 50 60 0 0")), nullptr) << "no polygon";
    EXPECT_EQ(shadeGrid(text("1 0 6 0 0", 0)), nullptr) << "no values";
    EXPECT_THAT(said([&] { shadeGrid(text("1.5 0.5 4 0 588")); }),
                StartsWith(title + "title\n" + end + " 8  0  0.625"));

    std::vector<float> rest;
    test::polygonsOf(shadeGrid(gridText(3, 3, "120", "1 2 3 4 5 6 7 8 9", "1 0 8 0 0")), &rest);
    EXPECT_THAT(rest,
                ElementsAre(-1, 4, 3, 0, 90, 360, 85, 120, -2.5F, 1, 2, 3, 1, 4, 5, 6, 4, 7, 8, 9, 7, 0))
        << "a grid that circles the globe is closed";
}

TEST_F(ShadedFiles, ReportWhatIsWrong) {
    const auto code = [](const std::string& text) { return shadeGrid(text)[0]; };
    EXPECT_EQ(code("diamond 4"), -2);
    EXPECT_EQ(code("diamonds 3 title"), -3) << "the type is looked at before the keyword";
    EXPECT_EQ(code("diamonds 4 title"), -4);
    EXPECT_EQ(code(gridText(2, 2, "x", "1 2 3 4")), -5);
    EXPECT_EQ(code(gridText(4, 2, "90", "1 2 3 4 5 6 7 x")), -5) << "a value, not the header";
    EXPECT_EQ(code(gridText(4, 2, "9", "1 2 3 4 5 6 7 x")), -6);
    EXPECT_EQ(said([] { shadeGrid(gridText(4, 2, "9", "1 2")); }), title + "title\n");
    testing::internal::CaptureStderr();
    EXPECT_EQ(Block(readCntrShadData("no/such/file", 0, 1))[0], -1);
    EXPECT_EQ(readByteShadData("no/such/file", 1, 0, 0), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Cannot open data file no/such/file.\nCannot open cloud data file.\n");
}

/// Shades an image of six columns and rows, and the numbers it stands for.
void expectSame(const std::vector<float>& values, int kind, int stripRows, int mode, Field same) {
    std::string pixels;
    for (const float value : values) pixels += static_cast<char>(value < 0 ? 255 : static_cast<int>(value));
    same.values = values;
    const Block block = shadeImage(image(pixels, "6 6", kind), stripRows, mode, 12.5F);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(all(block), all(test::shade(same)));
}

TEST_F(ShadedFiles, OfBytesCount255AsMinusOne) {
    Field same{{}, 6, 6, std::vector<float>(256), std::vector<int>(256), 5, 255, 2, 10, 2};
    std::iota(same.levels.begin(), same.levels.end(), 0.0F);
    std::iota(same.colours.begin(), same.colours.end(), 0);
    std::vector<float> values(36, 254);
    values[14] = -1;
    expectSame(values, 1, -1, 0, same);  // the whole image in one strip
    values = {1, 2, 13, 10, 26, 4, 90, 91, 20, -1, 99, 100};
    values.resize(36, 26);  // which ends a text
    same.stripRows = 1;
    expectSame(values, 1, 1, 2, same);
    same.missing = 20;
    expectSame(values, 5, 1, 0, same);
    same.levels = {12.5F};
    expectSame(values, 5, 1, 1, same);
}

TEST_F(ShadedFiles, OfBytesTellTheirTitleAndSizesThatAreOdd) {
    const std::string low(12, '\0');
    for (const char* size : {"4 3", "2 6"})
        EXPECT_EQ(said([&] { shadeImage(image(low, size)); }), title + "T\xB1\n" + end) << size;
    EXPECT_EQ(said([&] { shadeImage(image(low, "3 3")); }), sizeWarning + title + "T\xB1\n" + end);
    EXPECT_EQ(said([&] { shadeImage(image(low, "3 5")); }), sizeWarning) << "and that cannot be read";
}

TEST_F(ShadedFiles, OfBytesNeedKeywordAndPixels) {
    const std::string pixels(12, 'x');
    std::string good = image(pixels);
    EXPECT_NE(shadeImage(good + "surplus"), nullptr);
    EXPECT_EQ(shadeImage(image(pixels, "4 3", 1, "march")), nullptr);
    EXPECT_EQ(shadeImage(image(pixels, "4 3", 1, "March1")), nullptr);
    for (std::size_t length = 0; length < good.size(); length += 5)
        EXPECT_EQ(shadeImage(good.substr(0, length)), nullptr);
    for (const char* size : {"5 3", "2147483647 2147483647", "0 3", "-4 -3", "x 3"})
        EXPECT_EQ(shadeImage(image(pixels, size)), nullptr) << size;
    good[60] = '\0';
    EXPECT_NE(shadeImage(good), nullptr) << "NULs may pad the header";
    good[10] = '\0';
    EXPECT_EQ(shadeImage(good), nullptr) << "which ends with the first";

    const auto file = files::readWholeFile(test::sample("images/cloud_total_global.img").c_str());
    const auto cloud = files::readByteImage(file->raw());
    const grid::Grid grid = files::valuesOf(cloud.value());
    EXPECT_EQ(grid.values.size(), 144U * 73);
    EXPECT_EQ(std::count(grid.values.begin(), grid.values.end(), files::undefinedValueOf(*cloud)), 63);
}

TEST_F(ShadedFiles, AndGridsNeedValuesLevelsAndColours) {
    const std::vector<float> grid{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    const std::vector<int> colours{1};
    const float *g = grid.data(), *none = nullptr;
    const auto nothing = [&](const float* values, int nx, int ny, const float* levels, const int* colour,
                             int count, const float* steps) {
        return velmarCntrShad(values, nx, ny, levels, colour, count, 0, 0, 0, 1, 1, 1) == nullptr &&
               velmarCntrShadJ(values, nx, ny, -count, 0, 0, 0, 1, 1, 1) == nullptr &&
               velmarCntrShadD(values, nx, ny, levels, colour, count, 0, 1, steps, steps) == nullptr;
    };
    for (const auto& [nx, ny] : {std::pair{0, 3}, {3, -1}, {1, 9}, {9, 1}})
        EXPECT_TRUE(nothing(g, nx, ny, g, colours.data(), 1, g)) << nx << ' ' << ny;
    EXPECT_TRUE(nothing(none, 3, 3, g, colours.data(), 1, g));
    EXPECT_TRUE(nothing(g, 3, 3, none, colours.data(), 1, g));
    EXPECT_TRUE(nothing(g, 3, 3, g, nullptr, 1, g));
    EXPECT_TRUE(nothing(g, 3, 3, g, colours.data(), 0, g));
    EXPECT_EQ(velmarCntrShadD(g, 3, 3, g, colours.data(), 1, 0, 1, g, none), nullptr);
    EXPECT_EQ(velmarCntrShadD(g, 3, 3, g, colours.data(), 1, 0, 1, none, g), nullptr);
}

/// The number in the table is that of rows in a strip.
TEST_F(ShadedFiles, OfTheSamplesStayAsTheyAre) {
    test::expectResultsAsIn("shade/samples.txt", 20, [](const std::string& path, int stripRows) {
        const bool image = path.ends_with(".img");
        return image ? readByteShadData(path.c_str(), stripRows, 0, 0)
                     : readCntrShadData(path.c_str(), 0, stripRows);
    });
}

}  // namespace
