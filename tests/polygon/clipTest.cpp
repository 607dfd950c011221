#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

#include "support/files.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using velmar::test::Block;

using Polygon = std::vector<float>;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();

int pointCount(const Polygon& polygon) { return static_cast<int>(polygon.size() / 2); }

/// SHClip, whose block has room for two points per point, zeros behind the clipped ones.
Polygon clipByEdge(const Polygon& polygon, float ex1, float ey1, float ex2, float ey2) {
    int count = -1;
    const Block block(SHClip(polygon.data(), ex1, ey1, ex2, ey2, pointCount(polygon), &count));
    EXPECT_EQ(SHClipPntNum(), count);
    float* const end = block.get() + 2 * count;
    EXPECT_THAT(Polygon(end, block.get() + std::max<std::size_t>(2, 2 * polygon.size())), Each(0));
    return {block.get(), end};
}

/// Clip with an array that has just the room it must have, and is not changed behind the clipped polygon.
Polygon clipByRectangle(Polygon polygon, float xmin, float ymin, float xmax, float ymax) {
    const int n = pointCount(polygon);
    polygon.resize(2 * std::max<std::size_t>(static_cast<std::size_t>(81 * n / 16), 1), -77);
    const Polygon before = polygon;
    const auto count = static_cast<std::ptrdiff_t>(Clip(polygon.data(), xmin, ymin, xmax, ymax, n));
    const auto end = polygon.begin() + 2 * count;
    EXPECT_TRUE(std::equal(end, polygon.end(), before.begin() + 2 * count));
    return {polygon.begin(), end};
}

TEST(ClippingByAnEdge, KeepsWhatLiesOnItsLeftOrOnItsLine) {
    const Polygon square{0, 0, 4, 0, 4, 4, 0, 4};
    EXPECT_THAT(clipByEdge(square, 0, 1, 1, 1), ElementsAre(0, 1, 4, 1, 4, 4, 0, 4));
    EXPECT_THAT(clipByEdge(square, 1, 1, 0, 1), ElementsAre(0, 1, 0, 0, 4, 0, 4, 1));
    EXPECT_THAT(clipByEdge(square, 1, 0, 1, 1), ElementsAre(0, 0, 1, 0, 1, 4, 0, 4));
    EXPECT_THAT(clipByEdge(square, 1, 1, 1, 0), ElementsAre(1, 0, 4, 0, 4, 4, 1, 4));
    EXPECT_THAT(clipByEdge(square, 0, 4, 1, 4), ElementsAre(0, 4, 4, 4, 4, 4, 0, 4))
        << "a point on the line is kept, and so is the crossing there";
    EXPECT_THAT(clipByEdge(square, 0, 5, 1, 5), IsEmpty());
    EXPECT_THAT(clipByEdge(square, 1, 1, 1, 1), IsEmpty()) << "no direction, no inside";
    EXPECT_THAT(clipByEdge({0, 0, 4, 0, 2, 4}, 1, 3, 0, 3), ElementsAre(1.5F, 3, 0, 0, 4, 0, 2.5F, 3));
}

TEST(ClippingByAnEdge, TakesEmptyAndOddPolygons) {
    EXPECT_THAT(clipByEdge({}, 0, 0, 1, 0), IsEmpty());
    EXPECT_EQ(clipByEdge({nan, nan, 1, nan, nan, 1}, 0, 0, 1, 0).size(), 6) << "one point above the line";
    int count = 7;
    EXPECT_EQ(SHClip(nullptr, 0, 0, 1, 0, 3, &count), nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_NE(Block(SHClip(nullptr, 0, 0, 1, 0, -1, nullptr)), nullptr);
}

TEST(ClippingByARectangle, StartsWithItsBottomAndGoesRound) {
    EXPECT_THAT(clipByRectangle({-4, -1, 8, -1, 2, 5}, 0, 0, 4, 4),
                ElementsAre(1, 4, 0, 3, 0, 0, 4, 0, 4, 3, 3, 4));
    EXPECT_THAT(clipByRectangle({1, 1, 4, 2, 2, 4}, 0, 0, 4, 4), ElementsAre(1, 1, 4, 2, 2, 4));
    EXPECT_THAT(clipByRectangle({5, 0, 9, 0, 9, 9}, 0, 0, 4, 4), IsEmpty());
    EXPECT_THAT(clipByRectangle({1, 1, 4, 2, 2, 4}, 0, 0, 0, 4), IsEmpty()) << "a rectangle without width";
    Polygon odd{nan, nan, nan, 1, 1, nan, 2, 2};
    odd.resize(40);
    EXPECT_LE(Clip(odd.data(), 0, 0, 4, 4, 4), 20);
    EXPECT_THAT(clipByRectangle({}, 0, 0, 4, 4), IsEmpty());
    EXPECT_EQ(Clip(nullptr, 0, 0, 4, 4, 3), 0);
    EXPECT_EQ(Clip(nullptr, 0, 0, 4, 4, -3), 0);
    const int count = SHClipPntNum();
    EXPECT_NE(clipByRectangle({0, 0, 9, 0, 0, 9}, 0, 0, 4, 4).size() / 2, count);
    EXPECT_EQ(SHClipPntNum(), count) << "which counts the points of single edges only";
}

/// The even-odd rule.
bool contains(const Polygon& polygon, float x, float y) {
    bool inside = false;
    for (std::size_t k = 0; k < polygon.size(); k += 2) {
        const std::size_t next = (k + 2) % polygon.size();
        const float x1 = polygon[k], y1 = polygon[k + 1], x2 = polygon[next], y2 = polygon[next + 1];
        if ((y1 > y) != (y2 > y) && x < x1 + (x2 - x1) * (y - y1) / (y2 - y1)) inside = !inside;
    }
    return inside;
}

/// Self-intersecting polygons too: what lies in the rectangle is covered as before, and nothing else is.
TEST(ClippingByARectangle, CoversWhatPolygonAndRectangleShare) {
    std::mt19937 random(5);
    const auto coordinate = [&] { return static_cast<float>(random() % 4000) / 100 - 10; };
    for (int round = 0; round < 2000; ++round) {
        Polygon polygon(2 * (3 + random() % 12));
        std::generate(polygon.begin(), polygon.end(), coordinate);
        const Polygon clipped = clipByRectangle(polygon, 1, 2, 16, 13);
        for (std::size_t k = 0; k < clipped.size(); k += 2) {
            ASSERT_TRUE(1 <= clipped[k] && clipped[k] <= 16);
            ASSERT_TRUE(2 <= clipped[k + 1] && clipped[k + 1] <= 13.00001F);
        }
        for (int probe = 0; probe < 50; ++probe) {
            const float x = coordinate() + 0.00377F;
            const float y = coordinate() + 0.00377F;
            const bool shared = 1 < x && x < 16 && 2 < y && y < 13 && contains(polygon, x, y);
            ASSERT_EQ(contains(clipped, x, y), shared) << round << ' ' << x << ' ' << y;
        }
    }
}

}  // namespace
