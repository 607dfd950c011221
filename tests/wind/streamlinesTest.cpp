#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>

#include "capi/state.h"
#include "support/fields.h"
#include "support/files.h"
#include "support/said.h"
#include "support/samples.h"
#include "wind/plainStreamlines.h"

namespace {

using namespace velmar::test;
using velmar::capi::state;

constexpr float missing = 9999;
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();

PlainWind constantWind(int nx, int ny, float u, float v) {
    const auto count = static_cast<std::size_t>(nx * ny);
    return {nx, ny, std::vector<float>(count, u), std::vector<float>(count, v), std::vector<float>(count, 5)};
}

Block analyse(const PlainWind& w) {
    return Block(streamAnalyse(w.u.data(), w.v.data(), w.c.data(), w.nx, w.ny, w.undef, w.undef, w.undef,
                               w.coloured ? 1 : 0, w.levels.data(), w.colours.data(),
                               static_cast<int>(w.levels.size()), w.density));
}

/// The points and arrows of a result.
struct Drawn {
    struct Point {
        float pen, lon, lat, colour;
    };
    std::vector<Point> points;
    std::vector<std::vector<float>> arrows;
};

Drawn drawnOf(const Block& block) {
    Drawn drawn;
    const auto end = static_cast<std::size_t>(block[1]);
    std::size_t k = 2;
    for (; k < end && block[k] != 2; k += 4)
        drawn.points.push_back({block[k], block[k + 1], block[k + 2], block[k + 3]});
    for (; k < end; k += 6) drawn.arrows.emplace_back(&block[k], &block[k] + 6);
    return drawn;
}

class Streamlines : public testing::Test {
protected:
    void SetUp() override {
        state().windLattice = {0, 0, 1, 0, 0, 1};
        state().streamlineColour = 0;
    }
};

TEST_F(Streamlines, AreThoseOfThePlainWay) {
    std::mt19937 random(6);
    const std::vector<std::vector<float>> tables{
        {}, {1}, {0, 0.5F}, {-9, -1, 0, 1, 2}, {0, 1, 1, 2}, {0, 2, 1, notANumber, 3}, {0, notANumber, 1}};
    const std::vector<int> colours{3, 120, -4, 0, 7};
    int plainColour = 0;
    for (int round = 0; round < 120; ++round) {
        const int nx = 1 + static_cast<int>(random() % 45);
        const int ny = 1 + static_cast<int>(random() % 30);
        const auto field = [&] {
            auto values = round % 3 == 0 ? steppedField(random, nx, ny, 7, 30) : smoothField(random, nx, ny);
            for (float& value : values)
                if (round % 3 == 0 && value != missing) value -= 3;
            if (round % 7 == 0) values[random() % values.size()] = round % 2 == 0 ? notANumber : infinite;
            return values;
        };
        PlainWind wind{nx, ny, field(), field(), field()};
        wind.coloured = round % 5 != 0;
        wind.levels = tables[random() % tables.size()];
        wind.colours.assign(colours.begin(),
                            colours.begin() + static_cast<std::ptrdiff_t>(wind.levels.size()));
        wind.density = static_cast<int>(random() % 9) - 1;
        const PlainPlace place{100.1F, 130, -12.3F, 40, -0.7F, 0.3F};
        state().windLattice = {place.startLon, place.endLon, place.lonStep,
                               place.startLat, place.endLat, place.latStep};

        const std::vector<float> expected = PlainStreamlines(wind, place, plainColour).block();
        const Block block = analyse(wind);
        ASSERT_NE(block, nullptr);
        ASSERT_EQ(static_cast<std::size_t>(block[0]) + 1, expected.size()) << "round " << round;
        ASSERT_EQ(std::memcmp(block.get(), expected.data(), expected.size() * sizeof(float)), 0)
            << "round " << round;
    }
}

TEST_F(Streamlines, OfRealWindsAreTheSameBitsEverywhere) {
    expectResultsAsIn("wind/samples.txt", 6, [](const std::string& path, int density) {
        state().streamlineColour = 0;
        return readWindData(path.c_str(), density);
    });
}

TEST_F(Streamlines, HaveOnlyTheirStartsWhereNothingMoves) {
    const auto expectStarts = [](const PlainWind& wind, std::size_t cells) {
        Block block;
        EXPECT_EQ(said([&] { block = analyse(wind); }), "    \xC3\xBB\xD3\xD0\xBC\xFD\xCD\xB7 \n");
        const Drawn drawn = drawnOf(block);
        EXPECT_EQ(drawn.points.size(), 2 * cells);
        EXPECT_TRUE(drawn.arrows.empty());
        EXPECT_TRUE(std::ranges::all_of(drawn.points, [](const auto& point) { return point.pen == 0; }));
    };
    constexpr float almostBlowing = 0.099F;
    expectStarts(constantWind(200, 3, almostBlowing, -almostBlowing), 600);
    expectStarts(constantWind(200, 3, missing, missing), 600);
    expectStarts(constantWind(200, 3, notANumber, 1), 600);
    expectStarts(constantWind(1, 1, 5, 5), 100);  // the edge all around
}

TEST_F(Streamlines, HaveTheirFirstArrowsAfter21StepsWithTheFlowAnd2AgainstIt) {
    // One cell a grid length: a step is half a degree. The last line starts in the highest row.
    PlainWind wind = constantWind(200, 200, 4, 0);
    const Drawn west = drawnOf(analyse(wind));
    EXPECT_EQ(west.arrows.front(), (std::vector<float>{2, 10, 0, 10.5F, 0, 1}));
    wind = constantWind(200, 200, -4, 0);
    const Drawn east = drawnOf(analyse(wind));
    EXPECT_EQ(east.arrows.front(), (std::vector<float>{2, 1, 0, 0.5F, 0, 1}));
}

TEST_F(Streamlines, AreAsDenseAsTheDensitySays) {
    // Rows of an eastward wind start a line each where the cells allow: their distance shows cells and reach.
    const auto rowsOf = [](int nx, int density) {
        PlainWind wind = constantWind(nx, 8, 1, 0);
        wind.density = density;
        const Drawn drawn = drawnOf(analyse(wind));
        std::vector<float> rows;
        for (const auto& point : drawn.points)
            if (point.pen == 1 && (rows.empty() || rows.back() != point.lat)) rows.push_back(point.lat);
        return rows;
    };
    EXPECT_EQ(rowsOf(200, 5), (std::vector<float>{0, 3, 6}));              // 1 cell, 2 kept free
    EXPECT_EQ(rowsOf(200, 0), (std::vector<float>{0, 4}));                 // 1 cell, 3 kept free
    EXPECT_EQ(rowsOf(200, 6), (std::vector<float>{0, 1, 2, 3, 4, 5, 6}));  // 2 cells, 1 kept free
    EXPECT_EQ(rowsOf(100, std::numeric_limits<int>::max()).size(), 35U);   // 10 cells at most
    EXPECT_EQ(rowsOf(100, std::numeric_limits<int>::min()), (std::vector<float>{0, 4}));
}

TEST_F(Streamlines, TakeTheColourOfTheirSpeed) {
    const auto colourOf = [](const std::string& u, const std::string& v = " 0") {
        const TemporaryFile file("diamond 11 wind 11 1 1 8 0 850 1 1 100 101 20 21 2 2" + u + u + u + u + v +
                                 v + v + v);
        const Drawn drawn = drawnOf(Block(readWindData(file.path().c_str(), 5)));
        const auto line = std::ranges::find(drawn.points, 1.0F, &Drawn::Point::pen);
        return line == drawn.points.end() ? -1 : line->colour;
    };
    EXPECT_EQ(colourOf(" 1.99"), 0);
    EXPECT_EQ(colourOf(" 2"), 1);
    EXPECT_EQ(colourOf(" 77.9"), 38);
    EXPECT_EQ(colourOf(" 78"), 39);
    // Less than 16 m/s, but not in single precision.
    EXPECT_EQ(colourOf(" 13.828", " 8.049"), 8);
}

TEST_F(Streamlines, CarryTheColourOfTheCallBefore) {
    PlainWind wind = constantWind(4, 4, 1, 0);
    wind.levels = {0};
    wind.colours = {42};
    EXPECT_EQ(drawnOf(analyse(wind)).points.front().colour, 0);
    EXPECT_EQ(drawnOf(analyse(wind)).points.front().colour, 42);
    wind.coloured = false;
    const Drawn plain = drawnOf(analyse(wind));
    EXPECT_EQ(plain.points.front().colour, 42);
    EXPECT_EQ(plain.points.back().colour, 1);
}

TEST_F(Streamlines, NeedTheirGridsAndTables) {
    PlainWind wind = constantWind(3, 3, 1, 0);
    const float* const g = wind.u.data();
    const int colour = 3;
    const auto isNull = [](float* block) { return Block(block) == nullptr; };
    EXPECT_TRUE(isNull(streamAnalyse(g, g, g, 0, 0, 0, 0, 0, 0, nullptr, nullptr, 0, 5)));
    EXPECT_TRUE(isNull(streamAnalyse(g, g, g, 3, -1, 0, 0, 0, 0, nullptr, nullptr, 0, 5)));
    EXPECT_TRUE(isNull(streamAnalyse(nullptr, g, g, 3, 3, 0, 0, 0, 0, nullptr, nullptr, 0, 5)));
    EXPECT_TRUE(isNull(streamAnalyse(g, g, nullptr, 3, 3, 0, 0, 0, 1, nullptr, nullptr, 0, 5)));
    EXPECT_TRUE(isNull(streamAnalyse(g, g, g, 3, 3, 0, 0, 0, 1, nullptr, &colour, 2, 5)));
    EXPECT_FALSE(isNull(streamAnalyse(g, g, g, 3, 3, 0, 0, 0, 1, nullptr, &colour, 1, 5)));
    EXPECT_FALSE(isNull(streamAnalyse(g, g, g, 3, 3, 0, 0, 0, 1, nullptr, nullptr, -7, 5)));
    EXPECT_FALSE(isNull(streamAnalyse(g, g, nullptr, 3, 3, 0, 0, 0, 0, nullptr, nullptr, 9, 5)));
}

// The sanitizer's allocator ends the process where others fail.
#if !defined(__SANITIZE_ADDRESS__)
TEST_F(Streamlines, NeedMemoryForTheirCells) {
    const float wind = 1;
    constexpr int most = std::numeric_limits<int>::max();
    // The grid is not looked at before.
    EXPECT_EQ(said([&] {
                  EXPECT_EQ(
                      streamAnalyse(&wind, &wind, nullptr, most, most, 0, 0, 0, 0, nullptr, nullptr, 0, 5),
                      nullptr);
              }),
              "Cannot allocate memory for streamline function\n");
}
#endif

}  // namespace
