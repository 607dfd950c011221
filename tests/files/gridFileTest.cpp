#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <vector>

#include "base/threads.h"
#include "support/files.h"
#include "support/plainLocale.h"
#include "velmarBaseA.h"

#if defined(_WIN32)
#include <windows.h>
#endif

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using velmar::test::Block;
using velmar::test::gridText;
using velmar::test::sample;
using velmar::test::TemporaryFile;

Block readText(const std::string& text) { return Block(readVelmar4(TemporaryFile(text).path().c_str())); }

float codeOf(const std::string& text) { return readText(text)[0]; }

/// The words of a file behind the keyword, type and title.
std::vector<float> numbersOf(const std::string& path) {
    const velmar::test::PlainLocale plain;
    std::ifstream file(path, std::ios::binary);
    std::string word;
    file >> word >> word >> word;
    std::vector<float> numbers;
    while (file >> word) numbers.push_back(std::strtof(word.c_str(), nullptr));
    return numbers;
}

class GridSamples : public testing::TestWithParam<const char*> {};

TEST_P(GridSamples, AreReadWhole) {
    const std::string path = sample(std::string("grids/") + GetParam());
    const Block block(readVelmar4(path.c_str()));
    const std::vector<float> file = numbersOf(path);
    ASSERT_GT(file.size(), 19U);
    const std::vector<float> values(file.begin() + 19, file.end());
    const std::size_t n = values.size();
    std::vector<float> expected{static_cast<float>(n + 16)};
    for (const std::size_t k : {12, 13, 8, 10, 9, 11, 6, 7}) expected.push_back(file[k]);
    expected.push_back(*std::max_element(values.begin(), values.end()));
    expected.push_back(*std::min_element(values.begin(), values.end()));
    expected.insert(expected.end(), values.begin(), values.end());
    expected.insert(expected.end(), file.begin() + 14, file.begin() + 19);
    ASSERT_EQ(static_cast<float>(n), file[12] * file[13]);
    EXPECT_THAT(std::vector<float>(block.get(), block.get() + n + 16), ElementsAreArray(expected));
}

INSTANTIATE_TEST_SUITE_P(All, GridSamples,
                         testing::Values("h500_global.000", "mslp_global.000", "precip2016_land_1deg.000",
                                         "rain6h_global.000", "rh700_asia.000", "soilt_global_missing.000",
                                         "speed10m_global_1deg.000", "t2m_namerica_s2n.000",
                                         "t850_global_s2n.000"),
                         [](const auto& info) {
                             const std::string name = info.param;
                             return name.substr(0, name.find('.'));
                         });

#if defined(_WIN32)
TEST(GridFile, HasAPathInTheCodePage) {
    if (GetACP() != 936) GTEST_SKIP() << "the code page is not GBK";
    const std::filesystem::path path(L"\u9AD8\u5EA6.000");
    std::ofstream(path) << gridText(3, 2, "2.5", "1 2 3 4 5 6");
    EXPECT_EQ(Block(readVelmar4("\xB8\xDF\xB6\xC8.000"))[0], 22);
    std::filesystem::remove(path);
}
#endif

TEST(GridFile, LaysOutTheResult) {
    const Block block = readText(gridText(3, 2, "2.5", "1 9999 -3\n0x10 1e1 6 surplus"));
    EXPECT_THAT(std::vector<float>(block.get(), block.get() + 22),
                ElementsAre(22, 3, 2, 0, 90, 357.5F, -90, 2.5F, -2.5F, 9999, -3, 1, 9999, -3, 16, 10, 6, 4, 0,
                            100, 0, 8));
}

TEST(GridFile, ReportsWhatIsWrong) {
    const std::string good = gridText(2, 2, "2.5", "1 2 3 4");
    EXPECT_EQ(codeOf(good), 20);
    EXPECT_EQ(codeOf(""), -2);
    EXPECT_EQ(codeOf("diamond four title"), -2);
    EXPECT_EQ(codeOf("diamond 4"), -2);
    EXPECT_EQ(codeOf("diamond 4 \x1A"), -2) << "the mark at the end of a text is not a title";
    EXPECT_EQ(codeOf("diamond 4 \x1A\x1A"), -5) << "but one before it is";
    EXPECT_EQ(codeOf("diamond 11 title"), -3);
    EXPECT_EQ(codeOf("diamonds 3 title"), -3) << "the type is looked at before the keyword";
    EXPECT_EQ(codeOf("Diamond 4 title"), -4);
    EXPECT_EQ(codeOf("diamonds 4 title"), -4);
    EXPECT_EQ(codeOf("diamond 4 two words 2011 10 08"), -5);
    EXPECT_EQ(codeOf(gridText(2, 2, "x", "1 2 3 4")), -5);
    EXPECT_EQ(codeOf(gridText(2, 2, "2.5", "1 2 3")), -7);
    EXPECT_EQ(codeOf(gridText(2, 2, "2.5", "1 2 x 4 5 6 7 8")), -7);
    EXPECT_EQ(codeOf(gridText(1000000000, 1, "2.5", "1 2 3 4")), -7);
    EXPECT_EQ(codeOf(gridText(2147483647, 2147483647, "2.5", "1 2 3 4")), -7);
    for (std::size_t length = 0; length < good.size() - 1; ++length)
        EXPECT_LT(codeOf(good.substr(0, length)), 0);
}

TEST(GridFile, NamesFilesThatCannotBeOpened) {
    for (const char* path : {"no/such/file", "."}) {
        testing::internal::CaptureStderr();
        const Block block(readVelmar4(path));
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "Cannot open data file " + std::string(path) + ".\n");
        EXPECT_EQ(block[0], -1);
    }
    testing::internal::CaptureStderr();
    EXPECT_EQ(Block(readVelmar4(nullptr))[0], -1);
    testing::internal::GetCapturedStderr();
}

TEST(GridFile, WithoutValuesIsItsHeader) {
    for (const auto& [nx, ny] : {std::pair{0, 5}, {5, 0}, {-2, -3}, {-2, 3}}) {
        const Block block = readText(gridText(nx, ny, "2.5", ""));
        EXPECT_EQ(block[0], 16);
        EXPECT_EQ(block[1], static_cast<float>(nx));
        EXPECT_EQ(block[2], static_cast<float>(ny));
        EXPECT_EQ(block[9], -1e36F);
        EXPECT_EQ(block[10], 1e36F);
        EXPECT_EQ(block[15], 8);
    }
}

/// The bold value that contour results carry at the moment.
float lastBoldValue() {
    const float value = 0;
    const Block block(contour2DRaw(&value, 9999, 1, 1, 0, 0, 0, 1, nullptr, 0, 0, 0, 1, 1));
    return block[12];
}

TEST(GridFile, LeavesItsBoldValueBehindOnceItsHeaderIsRead) {
    readText(gridText(1, 1, "2.5", "1", "4 0 100 0 588"));
    EXPECT_EQ(lastBoldValue(), 588);
    readText(gridText(1, 1, "2.5", "", "4 0 100 0 12"));
    EXPECT_EQ(lastBoldValue(), 12) << "values that cannot be read do not matter";
    readText(gridText(1, 1, "2.5", "", "4 0 100 0 x"));
    EXPECT_EQ(lastBoldValue(), 12);
}

/// Large files are read in pieces by several threads. What is no number, or two in one word, shows in what follows.
TEST(LargeGrids, AreReadByManyThreadsAsByOne) {
    constexpr int nx = 500;
    constexpr int ny = 400;
    std::vector<std::string> words;
    for (int k = 0; k < nx * ny; ++k) words.push_back(std::to_string(k % 977) + (k % 3 == 0 ? ".25" : ""));
    const auto readWith = [&](std::size_t threads) {
        velmar::base::setThreadLimit(threads, 0.0);
        std::string text = "diamond 4 large\n11 10 8 0 0 500 1 1 0 499 0 399 500 400 4 0 9 0 0\n";
        for (std::size_t k = 0; k < words.size(); ++k) text += words[k] + (k % 10 == 9 ? "\r\n" : " ");
        const Block block = readText(text);
        velmar::base::setThreadLimit(3, 0.0);
        return std::vector<float>(block.get(), block.get() + (block[0] < 0 ? 1 : nx * ny + 16));
    };
    const auto expectSame = [&] {
        const std::vector<float> one = readWith(1);
        EXPECT_EQ(readWith(2), one);
        EXPECT_EQ(readWith(3), one);
        return one;
    };
    EXPECT_EQ(expectSame().size(), nx * ny + 16U);
    words[60'000] = "1.5.5";
    words[150'000] = "-0x1p-3";
    const std::vector<float> shifted = expectSame();
    EXPECT_EQ(shifted[11 + 60'001], 0.5F);
    EXPECT_EQ(shifted[11 + 150'001], -0.125F);
    words[199'000] = "1.x";
    EXPECT_EQ(expectSame().size(), 1U);
}

}  // namespace
