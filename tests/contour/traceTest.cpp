#include "contour/trace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <limits>
#include <random>

#include "contour/plain.h"
#include "support/fields.h"

namespace {

using namespace velmar;
using namespace velmar::contour;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<test::PlainLine> plainLines(const ContourLines& list) {
    std::vector<test::PlainLine> lines;
    for (const ContourLine& line : list.runs) {
        lines.push_back({line.level, {}});
        for (const grid::GridPoint& point : list.pointsOf(line)) {
            lines.back().xy.push_back(point.column);
            lines.back().xy.push_back(point.row);
        }
    }
    return lines;
}

std::vector<test::PlainLine> traced(const grid::GridView& grid, float level, ContourBuffers& buffers) {
    ContourLines list;
    traceLevels(grid, 9999, std::vector{level}, buffers, list);
    return plainLines(list);
}

std::vector<std::vector<float>> tracedPoints(const std::vector<float>& grid, int nx, int ny, float level) {
    ContourBuffers buffers;
    std::vector<std::vector<float>> points;
    for (const test::PlainLine& line : traced({grid.data(), nx, ny}, level, buffers))
        points.push_back(line.xy);
    return points;
}

void expectAsPlain(const std::vector<float>& field, int nx, int ny, float level, ContourBuffers& buffers) {
    const grid::GridView grid{field.data(), nx, ny};
    const auto lines = traced(grid, level, buffers);
    const auto expected = test::PlainTracer(grid, 9999, level, buffers.workBufferFloats).trace();
    ASSERT_EQ(lines, expected) << nx << " x " << ny << " at " << level;
}

TEST(Trace, EqualsThePlainWay) {
    std::mt19937 random(7);
    ContourBuffers kept;  // keeps the largest work buffer, as a process does
    for (int round = 0; round < 6000; ++round) {
        ContourBuffers fresh;
        ContourBuffers& buffers = round % 2 == 0 ? fresh : kept;
        const int nx = 2 + static_cast<int>(random() % (round % 10 == 0 ? 150 : 9));
        const int ny = 2 + static_cast<int>(random() % 9);
        const auto field = test::steppedField(random, nx, ny, 2 + random() % 4, random() % 3 == 0 ? 5 : 0);
        expectAsPlain(field, nx, ny, static_cast<float>(random() % 9) / 2, buffers);
        if (HasFatalFailure()) return;
    }
    for (int round = 0; round < 60; ++round) {
        const int nx = 60 + static_cast<int>(random() % 80);
        auto field = test::smoothField(random, nx, 50);
        if (round % 2 == 0) field[random() % field.size()] = std::numeric_limits<float>::quiet_NaN();
        expectAsPlain(field, nx, 50, static_cast<float>(round % 5) / 2 - 1, kept);
        if (HasFatalFailure()) return;
    }
}

TEST(Trace, EqualsThePlainWayOnEverySmallPattern) {
    constexpr float stock[] = {0, 1, 3, 9999};
    std::vector<float> field(9);
    ContourBuffers buffers;
    for (unsigned pattern = 0; pattern < (1U << 18U); ++pattern) {
        for (std::size_t k = 0; k < field.size(); ++k) field[k] = stock[pattern >> (2 * k) & 3U];
        expectAsPlain(field, 3, 3, 1, buffers);
        if (HasFatalFailure()) return;
    }
}

TEST(Trace, PassesEachCrossedEdgeOnceAtItsLevel) {
    std::mt19937 random(11);
    for (int round = 0; round < 50; ++round) {
        const int nx = 40;
        const int ny = 30;
        const auto field = test::smoothField(random, nx, ny);
        const grid::GridView grid{field.data(), nx, ny};
        ContourBuffers buffers;
        std::vector<std::pair<float, float>> points;
        for (const test::PlainLine& line : traced(grid, 0.25F, buffers)) {
            const std::size_t n = line.xy.size();
            const bool ring = n > 2 && line.xy[0] == line.xy[n - 2] && line.xy[1] == line.xy[n - 1];
            for (std::size_t k = ring ? 2 : 0; k < n; k += 2) points.emplace_back(line.xy[k], line.xy[k + 1]);
        }
        for (const auto& [x, y] : points) {
            const int i = static_cast<int>(x) - 1;
            const int j = static_cast<int>(y) - 1;
            const float tx = x - std::floor(x);
            const float ty = y - std::floor(y);
            const float next = tx > 0 ? grid.at(i + 1, j) : ty > 0 ? grid.at(i, j + 1) : grid.at(i, j);
            EXPECT_NEAR(grid.at(i, j) + (next - grid.at(i, j)) * std::max(tx, ty), 0.25F, 1e-4);
        }
        std::sort(points.begin(), points.end());
        EXPECT_EQ(std::adjacent_find(points.begin(), points.end()), points.end());
    }
}

TEST(Trace, TakesAnEqualValueAsBelow) {
    EXPECT_THAT(tracedPoints({1, 1, 1, 1}, 2, 2, 1), IsEmpty());
    EXPECT_THAT(tracedPoints({1, 2, 1, 2}, 2, 2, 1), ElementsAre(ElementsAre(1, 1, 1, 2)));
    EXPECT_THAT(tracedPoints({0, 1, 0, 1}, 2, 2, 1), IsEmpty());
}

TEST(Trace, ClosesRings) {
    EXPECT_THAT(tracedPoints({0, 0, 0, 0, 4, 0, 0, 0, 0}, 3, 3, 2),
                ElementsAre(ElementsAre(2, 1.5F, 2.5F, 2, 2, 2.5F, 1.5F, 2, 2, 1.5F)));
}

TEST(Trace, PairsSaddlesByTheShorterSegments) {
    // Bottom crossed at 0.5, right at 0.5, top at 0.5, left at 0.5: a tie takes bottom with right.
    EXPECT_THAT(tracedPoints({0, 2, 2, 0}, 2, 2, 1),
                ElementsAre(ElementsAre(1.5F, 1, 2, 1.5F), ElementsAre(1, 1.5F, 1.5F, 2)));
    EXPECT_THAT(tracedPoints({0, 4, 4, 0}, 2, 2, 1), ElementsAre(ElementsAre(1.25F, 1, 1, 1.25F)))
        << "the other line, across the last corner, has no edge to start from";
    EXPECT_THAT(tracedPoints({4, 0, 0, 4}, 2, 2, 1),
                ElementsAre(ElementsAre(1.75F, 1, 2, 1.25F), ElementsAre(1, 1.75F, 1.25F, 2)));
}

TEST(Trace, StopsAtMissingPoints) {
    EXPECT_THAT(tracedPoints({0, 4, 9999, 9999}, 2, 2, 2), ElementsAre(ElementsAre(1.5F, 1)))
        << "a lone edge";
    EXPECT_THAT(tracedPoints({0, 4, 0, 0, 4, 9999}, 2, 3, 2),
                ElementsAre(ElementsAre(1.5F, 1, 2, 1.5F), ElementsAre(1, 2.5F)));
}

/// A wall that winds through a grid, so that one line passes most of its cells.
std::vector<float> meander(int nx, int ny) {
    std::vector<float> field(static_cast<std::size_t>(nx * ny), 0.0F);
    for (int i = 1; i < nx - 1; i += 2) {
        for (int j = 1; j < ny - 1; ++j) field[static_cast<std::size_t>(j * nx + i)] = 2;
        const int link = i % 4 == 1 ? ny - 2 : 1;
        if (i + 2 < nx - 1) field[static_cast<std::size_t>(link * nx + i + 1)] = 2;
    }
    return field;
}

TEST(Trace, CutsLinesThatOutgrowTheWorkBuffer) {
    const auto field = meander(41, 31);
    const grid::GridView grid{field.data(), 41, 31};
    ContourBuffers buffers;
    const auto cut = traced(grid, 1, buffers);
    ASSERT_GT(cut.size(), 1U);
    const std::size_t room = 43 * 33;
    const std::size_t middle = room / 2 / 2 * 2;
    EXPECT_EQ(cut[0].xy.size(), 2 + (room - 6 - middle) / 2 * 2 + (middle - 4) / 2 * 2)
        << "both walks end at their ends";
    expectAsPlain(field, 41, 31, 1, buffers);

    const std::vector<float> larger(20000);
    traced({larger.data(), 20000, 1}, 1, buffers);
    EXPECT_EQ(traced(grid, 1, buffers).size(), 1U)
        << "the buffer is that of the largest grid so far, even of one row";
}

TEST(Trace, TracesLevelsInTheirOrder) {
    const std::vector<float> grid{0, 4, 0, 4};
    ContourBuffers buffers;
    ContourLines list;
    traceLevels({grid.data(), 2, 2}, 9999, std::vector<float>{3, 1, 3, 7}, buffers, list);
    using testing::Field;
    EXPECT_THAT(list.runs, ElementsAre(Field(&ContourLine::level, 3), Field(&ContourLine::level, 1),
                                       Field(&ContourLine::level, 3)));
    for (const auto& [nx, ny] : {std::pair{4, 1}, {1, 4}}) {
        traceLevels({grid.data(), nx, ny}, 9999, std::vector<float>{2}, buffers, list);
        EXPECT_EQ(list.runs.size(), 3U) << "a single row or column has no cells";
    }
}

}  // namespace
