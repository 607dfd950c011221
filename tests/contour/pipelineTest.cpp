#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "base/progress.h"
#include "capi/state.h"
#include "support/files.h"
#include "support/samples.h"

namespace {

using namespace velmar;
using test::Block;
using test::gridText;
using test::TemporaryFile;
using testing::ElementsAre;

std::vector<float> all(const Block& block) {
    return {block.get(), block.get() + static_cast<std::size_t>(block[0])};
}

/// contour2D or contour2DRaw of a grid at one level.
template <class Export>
Block at(Export contour, const std::vector<float>& grid, int nx, int ny, float level, float dx = 1,
         float dy = 1) {
    return Block(contour(grid.data(), 9999, nx, ny, 2, 11, 12, 13, &level, 1, 100, 20, dx, dy));
}

Block fileContours(const std::string& text, int mode = 0, int count = 0, const float* levels = nullptr) {
    return Block(readCntrData(TemporaryFile(text).path().c_str(), mode, count, levels));
}

/// The last four elements: bold value, start, end, interval.
std::vector<float> hintsOf(const Block& block) {
    const std::vector<float> elements = all(block);
    return {elements.end() - 4, elements.end()};
}

class Contours : public testing::Test {
protected:
    void SetUp() override {
        capi::state() = {};
        base::setProgressEnabled(false);
    }
    void TearDown() override { base::setProgressEnabled(true); }
};

TEST_F(Contours, AreLaidOutWithTheirGrid) {
    const std::vector<float> grid{0, 4, 0, 4, 0, 4};
    const Block block = at(contour2DRaw, grid, 2, 3, 1, 2, -2);
    EXPECT_THAT(all(block), ElementsAre(15 + 3 + 6 + 6, 1,                            //
                                        3, 1, 0, 100.5F, 20, 100.5F, 18, 100.5F, 16,  //
                                        -1, 2, 3, 100, 20, 102, 16, 2, -2,            //
                                        0, 4, 0, 4, 0, 4,                             //
                                        testing::_, 11, 12, 13));
    EXPECT_TRUE(capi::state().contours.lines.runs.empty());
}

TEST_F(Contours, WithoutLinesAreTheGridAlone) {
    const Block block = at(contour2D, {1, 2, 3, 4}, 2, 2, 50);
    EXPECT_EQ(block[0], 19);
    EXPECT_EQ(block[1], 0);
    EXPECT_EQ(block[2], -1);
    for (const auto& [nx, ny] : {std::pair{0, 7}, {7, 0}, {-1, -1}}) {
        const float level = 1;
        const Block empty(contour2D(nullptr, 9999, nx, ny, 2, 0, 0, 0, &level, 1, 0, 0, 1, 1));
        EXPECT_EQ(empty[0], 15);
        EXPECT_EQ(empty[3], static_cast<float>(nx));
    }
}

TEST_F(Contours, LeaveTheirFactorsToTheRawOnes) {
    const std::vector<float> grid{0, 4, 0, 4};
    EXPECT_EQ(at(contour2DRaw, grid, 2, 2, 1)[5], 100.25F);
    EXPECT_EQ(contour2D(grid.data(), 9999, 2, 2, 2, 0, 0, 1, nullptr, 1, 0, 0, 1, 1), nullptr);
    EXPECT_EQ(at(contour2DRaw, grid, 2, 2, 1)[5], 100.0625F) << "a refused call has its factors too";
    EXPECT_EQ(at(contour2D, grid, 2, 2, 1)[5], 100.25F)
        << "positions on the refined grid are divided by its factor";
}

TEST_F(Contours, NeedAModeAndWhatItNeeds) {
    const float value = 1;
    for (const auto contour : {contour2D, contour2DRaw}) {
        for (const int mode : {-1, 3, std::numeric_limits<int>::max()}) {
            EXPECT_EQ(contour(&value, 9999, 1, 1, mode, 0, 1, 1, &value, 1, 0, 0, 1, 1), nullptr);
        }
        EXPECT_EQ(contour(&value, 9999, 1, 1, 2, 0, 1, 1, nullptr, 1, 0, 0, 1, 1), nullptr);
        EXPECT_EQ(contour(nullptr, 9999, 2, 2, 0, 0, 1, 1, nullptr, 1, 0, 0, 1, 1), nullptr);
        EXPECT_EQ(Block(contour(&value, 9999, 1, 1, 2, 0, 1, 1, &value, -5, 0, 0, 1, 1))[0], 16);
    }
}

TEST_F(Contours, OfAFileTakeItsLevelsModesAndBoldValue) {
    const std::string text = gridText(3, 2, "2.5", "0 4 8 0 4 8", "4 2 6 0 588");
    const Block byHeader = fileContours(text);
    EXPECT_EQ(byHeader[1], 2);
    EXPECT_THAT(hintsOf(byHeader), ElementsAre(588, 2, 6, 4));
    EXPECT_EQ(fileContours(text, 1, 4)[1], 4) << "0, 2, 4, 6; 8 is not above itself";
    EXPECT_THAT(hintsOf(fileContours(text, 1, 4)), ElementsAre(588, 0, 6, 4))
        << "the start is the one chosen, the interval the file's";
    const std::vector<float> levels{1, 3, 5};
    EXPECT_EQ(fileContours(text, 2, 3, levels.data())[1], 3);
    EXPECT_EQ(fileContours(text, 2, 3, nullptr), nullptr);
    EXPECT_EQ(fileContours(text, 3), nullptr);
    EXPECT_EQ(readCntrData("no/such/file", -1, 0, nullptr), nullptr) << "nothing is read in an unknown mode";
    EXPECT_EQ(fileContours(gridText(0, 4, "2.5", ""))[0], 15);
    EXPECT_EQ(fileContours(gridText(3, 2, "2.5", "0 4", "4 2 6 0 12"))[0], -7);
    EXPECT_EQ(capi::state().lastBoldValue, 12) << "values that cannot be read do not matter";
    const auto lines = [](const std::string& hints) {
        return fileContours(gridText(2, 2, "2.5", "0 2e4 0 2e4", hints))[1];
    };
    EXPECT_EQ(lines("-2 9999 -9999 0 0"), 5000) << "of 10,000 levels those from 1 up";
    EXPECT_EQ(lines("-2 9999 -10001 0 0"), 0) << "one too many";
}

TEST_F(Contours, OfAGlobeCirclingFileAreClosedAtTheSeam) {
    const float none = 0;
    const auto wide = [](int nx, const std::string& step) {
        std::string values;
        for (int k = 0; k < 2 * nx; ++k) values += std::to_string(k % nx) + " ";
        return gridText(nx, 2, step, values);
    };
    const Block closed = fileContours(wide(4, "90"), 2, 0, &none);
    EXPECT_EQ(closed[3], 5);
    EXPECT_EQ(closed[7], 360);
    EXPECT_THAT((std::vector<float>(closed.get() + 11, closed.get() + 21)),
                ElementsAre(0, 1, 2, 3, 0, 0, 1, 2, 3, 0));
    EXPECT_EQ(fileContours(wide(4, "89.874"), 2, 0, &none)[3], 4) << "359.496 degrees";
    EXPECT_EQ(fileContours(wide(4, "89.876"), 2, 0, &none)[3], 5);
    EXPECT_EQ(fileContours(wide(4, "90.003"), 2, 0, &none)[3], 4) << "360.012 degrees";
    EXPECT_EQ(fileContours(wide(4, "90.002"), 2, 0, &none)[3], 5) << "360.008 degrees";

    EXPECT_EQ(fileContours(gridText(4, 2, "90", "1 2 3 4 5 6 7"))[0], -6);
    EXPECT_EQ(fileContours(gridText(2000000000, 1, "1.8e-7", "1 2 3 4 5 6 7"))[0], -6);
    EXPECT_EQ(fileContours(gridText(2147483647, -1, "1.6763806e-7", ""))[0], 15);
    EXPECT_EQ(fileContours(gridText(4, 2, "9", "1 2 3 4 5 6 7"))[0], -7);
    EXPECT_EQ(fileContours("diamond 3 title")[0], -3);
    EXPECT_EQ(fileContours("march 4 title")[0], -4);
}

TEST_F(Contours, OfAFileWithAutomaticLevelsKeepItsCenters) {
    fileContours(gridText(3, 3, "2.5", "0 0 0 0 7 0 0 0 0"), 1, 5);
    ASSERT_NE(capi::state().lastCenters, nullptr);
    EXPECT_EQ(capi::state().lastCenters[4], 7);
    fileContours(gridText(3, 3, "2.5", "0 0 0 0 -7 0 0 0 0"), 0);
    EXPECT_EQ(capi::state().lastCenters[4], 7) << "other modes do not touch them";
}

TEST_F(Contours, OfTheSamplesStayAsTheyAre) {
    test::expectResultsAsIn("contour/samples.txt", 18, [](const std::string& path, int mode) {
        return readCntrData(path.c_str(), mode, 10, nullptr);
    });
}

}  // namespace
