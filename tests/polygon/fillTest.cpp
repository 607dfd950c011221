#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <filesystem>
#include <limits>
#include <random>
#include <vector>

#if defined(__linux__)
#include <sys/resource.h>
#endif

#include "support/files.h"
#include "support/ownFolder.h"
#include "support/said.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using velmar::test::Block;

using Polygon = std::vector<float>;

constexpr const char* marksFile = "C:\\clipdebug.txt";
constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();

/// The outline of a polygon in the rectangle from (0, 0) to (10, 5). What is returned is its end; a large one
/// starts a block of two points per point, zeros behind the outline.
Polygon fill(Polygon polygon) {
    const auto n = static_cast<int>(polygon.size() / 2);
    int count = -1;
    float* const end = polygonfill(polygon.data(), n, 0, 0, 10, 5, &count);
    float* const start = end - 2 * count;
    const Polygon outline(start, end);
    const Block block(n < 10 ? nullptr : start);
    if (block) {
        EXPECT_THAT(Polygon(end, start + 4 * n), Each(0));
    }
    EXPECT_LT(count, 2 * n);
    return outline;
}

/// The marks go to the current directory.
using Filling = velmar::test::InOwnFolder;

std::string marks() { return velmar::test::textOf(marksFile); }

TEST_F(Filling, PutsCrossingsWhereTheOutlinePassesTheRim) {
    EXPECT_THAT(fill({5, 2, 15, 4, 5, 4.5F, 5, 8, -5, 8, 2, 1}),
                ElementsAre(5, 2, 10, 3, 10, 4, 10, 4.25F, 5, 4.5F, 5, 5, 5, 5, 0, 5, 0, 3, 2, 1));
    EXPECT_THAT(fill({9, 4, 12, 10, 9, 4}), ElementsAre(9, 4, 9.5F, 5, 10, 5, 9.5F, 5, 9, 4))
        << "a way past a vertical side ends on a horizontal one";
    EXPECT_THAT(fill({9, 4, 12, 7, 12, -2, 9, 1}), ElementsAre(9, 4, 10, 5, 10, 5, 10, 0, 10, 0, 9, 1))
        << "corners belong to the vertical sides";
    EXPECT_THAT(fill({12, 3, 5, 1, 5, 2}), ElementsAre(10, 3, 10, 12.0F / 5 + 1.0F / 35, 5, 1, 5, 2))
        << "the way from the last point to the first brings no crossing";
}

TEST_F(Filling, KeepsWhatIsInsideAndClampsWhatIsOutside) {
    const Polygon small{0, 0, 10, 0, 10, 5, 0, 5, 3, 3};
    EXPECT_EQ(fill(small), small) << "points on the rim are inside";
    Polygon large(24, 2.5F);
    EXPECT_EQ(fill(large), large);
    EXPECT_THAT(fill({-1, 2, 4, -7, 12, 9, 3, 8}), ElementsAre(0, 2, 4, 0, 10, 5, 3, 5));
    fill({nan, 2, 3, nan, 1, 1, nan, nan, 2, 2});
    EXPECT_EQ(fill({infinity, 2, 5, 2, 6, 3})[2], 10) << "a crossing is on a vertical side, wherever there";
}

TEST_F(Filling, NeverLeavesTheRectangle) {
    std::mt19937 random(3);
    for (int round = 0; round < 300; ++round) {
        Polygon polygon(2 * (3 + random() % 20));
        for (float& c : polygon) c = static_cast<float>(random() % 2000) / 100 - 7;
        const Polygon outline = fill(polygon);
        for (std::size_t k = 0; k < outline.size(); k += 2) {
            ASSERT_TRUE(0 <= outline[k] && outline[k] <= 10) << outline[k];
            ASSERT_TRUE(0 <= outline[k + 1] && outline[k + 1] <= 5) << outline[k + 1];
        }
    }
}

TEST_F(Filling, ReturnsThePolygonWhenThereIsNothingToFill) {
    Polygon line{1, 2, 3, 4};
    for (const int n : {2, 0, -5}) {
        int count = -1;
        EXPECT_EQ(polygonfill(line.data(), n, 0, 0, 1, 1, &count), line.data());
        EXPECT_EQ(count, 0);
        EXPECT_EQ(marks(), "debug_A\ndebug_B\n");
    }
    int count = -1;
    EXPECT_EQ(polygonfill(nullptr, 5, 0, 0, 1, 1, &count), nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(polygonfill(line.data(), 50, 0, 0, 1, 1, nullptr), line.data());
}

TEST_F(Filling, LeavesMarksInAFileOfItsOwn) {
    Polygon polygon(24, 7);
    fill(polygon);
    EXPECT_EQ(marks(), "debug_A\ndebug_B\ndebug_C\ndebug_D\ndebug1\ndebug-end\n");
    std::filesystem::remove(marksFile);
    std::filesystem::create_directory(marksFile);
    int count = -1;
    testing::internal::CaptureStderr();
    EXPECT_EQ(polygonfill(polygon.data(), 12, 0, 0, 1, 1, &count), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Cannot open data file\n");
    EXPECT_EQ(count, -1) << "left alone";
    std::filesystem::remove(marksFile);  // which is no file of this folder on Windows
}

#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)
/// The lack is noticed before the points are read, of which there are fewer here than are promised.
TEST_F(Filling, AndClippingGiveUpWithoutMemory) {
    const auto giveUp = [] {
        const rlimit limit{1U << 30, 1U << 30};
        setrlimit(RLIMIT_AS, &limit);
        Polygon polygon{0, 0, 1, 0, 1, 1};
        int count = -1;
        velmar::test::CapturedOutput output;
        const bool filled = polygonfill(polygon.data(), INT_MAX, 0, 0, 9, 9, &count) != polygon.data();
        const std::string said = output.text();
        const bool failed = !filled && count == 0 && marks() == "debug_A\ndebug_B\ndebug_C\n" &&
                            Clip(polygon.data(), 0, 0, 9, 9, INT_MAX) == 0 &&
                            SHClip(polygon.data(), 0, 0, 9, 0, INT_MAX, &count) == nullptr && count == 0;
        std::exit(failed && said == "Memory allocation error in gxfill.  Can't fill contour\n" ? 0 : 1);
    };
    EXPECT_EXIT(giveUp(), testing::ExitedWithCode(0), "");
}
#endif

}  // namespace
