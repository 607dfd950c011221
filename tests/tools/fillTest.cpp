#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "../support/fields.h"
#include "base/progress.h"
#include "chart/layers/coverageLayer.h"
#include "chart/layers/fillLayer.h"
#include "chart/paper/palette.h"
#include "compute/shading.h"
#include "picture.h"

namespace {

using namespace velmar::tool;
using velmar::grid::GridView;
using velmar::grid::Lattice;

constexpr float missing = velmar::grid::missingInFiles;

class FillTest : public testing::Test {
protected:
    FillTest() { velmar::base::setProgressEnabled(false); }

    /// A field on a lattice as it comes from the contouring.
    static ContourSet contours(const std::vector<float>& field, int nx, const Lattice& lattice,
                               std::vector<float> levels) {
        ContourSet set{};
        set.levels = std::move(levels);
        set.grid = {field.data(), nx, static_cast<int>(field.size()) / nx};
        set.lattice = lattice;
        set.refinement = velmar::grid::chooseFactors(set.grid.nx, set.grid.ny);
        return set;
    }

    static BareMap draw(const Fill& fill, const GeoBox& bounds, int width, int height) {
        BareMap map(bounds, width, height);
        CoverageLayer(fill.grid, fill.lattice, fill.colours.front()).draw(map.page);
        FillLayer(fill).draw(map.page);
        return map;
    }
};

/// Whether a grid point lies beside one without data, or so close to a level that a rounded corner could cut
/// it off.
bool isNearEdge(const Fill& fill, int i, int j) {
    const GridView grid = fill.grid;
    const bool nearLevel = std::ranges::any_of(
        fill.levels, [&](float level) { return std::fabs(grid.at(i, j) - level) < 0.1F; });
    bool nearMissing = false;
    for (int n = 0; n < 9; ++n) nearMissing |= !isPresent(grid.at(i + n % 3 - 1, j + n / 3 - 1));
    return nearLevel || nearMissing;
}

void expectColours(const Fill& fill, const BareMap& map, double circle) {
    const GridView grid = fill.grid;
    for (int j = 1; j + 1 < grid.ny; ++j) {
        for (int i = 1; i + 1 < grid.nx; ++i) {
            const double x = fill.lattice.startLongitude + i * double{fill.lattice.longitudeStep} - circle;
            const double y = fill.lattice.startLatitude + j * double{fill.lattice.latitudeStep};
            const float value = grid.at(i, j);
            if (value != missing && isNearEdge(fill, i, j)) continue;
            const auto band = std::ranges::upper_bound(fill.levels, value) - fill.levels.begin();
            const Colour& colour =
                value == missing ? noDataGrey : fill.colours[static_cast<std::size_t>(band)];
            EXPECT_TRUE(isLike(map.at(x, y), pixelOf(colour))) << value << " at " << x << " " << y;
        }
    }
}

TEST_F(FillTest, EveryPointHasTheColourOfItsBand) {
    std::mt19937 random(3);
    for (const float latitudeStep : {2.5F, -2.5F}) {
        std::vector<float> field = velmar::test::smoothField(random, 41, 21);
        for (int k = 0; k < 6; ++k) field[random() % field.size()] = missing;
        const float south = latitudeStep > 0 ? 10.0F : 60.0F;
        const ContourSet set =
            contours(field, 41, {300, 400, 2.5F, south, south + 20 * latitudeStep, latitudeStep},
                     {2, -1, 0, 1, -2.5F, 1});  // in any order, one twice
        const Fill fill = fillContours(set);
        ASSERT_GT(fill.grid.nx, 41) << "lines are traced on a finer grid";
        // The grid once as it stands, once seen from the other side of the seam.
        for (const double circle : {0.0, 360.0})
            expectColours(fill, draw(fill, {300 - circle, 400 - circle, 10, 60}, 1201, 607), circle);
    }
}

TEST_F(FillTest, ShowsNoSeams) {
    // Bands run north and south, so that every row of pixels is the same.
    std::vector<float> field;
    for (int j = 0; j < 23; ++j)
        for (int i = 0; i < 60; ++i) field.push_back(static_cast<float>(i));
    const Fill fill = fillContours(contours(field, 60, {0, 59, 1, 40, 18, -1}, {10.3F, 20.7F, 31, 48.2F}));
    for (const int height : {97, 211, 640}) {
        const BareMap map = draw(fill, {0, 59, 18, 40}, 331, height);
        for (int y = 1; y + 1 < height; ++y)
            for (int x = 1; x < 330; ++x) EXPECT_TRUE(isLike(map.picture.at(x, y), map.picture.at(x, 1)));
    }
}

TEST_F(FillTest, LiesRightInCloseUps) {
    std::vector<float> field;
    for (int j = 0; j < 19; ++j)
        for (int i = 0; i < 37; ++i) field.push_back(static_cast<float>(i + 2 * j));
    const Fill fill = fillContours(contours(field, 37, {0, 360, 10, -90, 90, 10}, {40.205F}));
    // The level runs through the middle: longitude + 2 (latitude + 90) = 402.05.
    for (const double latitude : {20.025, -60.0}) {
        const double longitude = 402.05 - 2 * (latitude + 90);
        const GeoBox bounds{longitude - 0.1, longitude + 0.1, latitude - 0.05, latitude + 0.05};
        const BareMap map = draw(fill, bounds, 1000, 500);
        for (int y = 5; y < 500; y += 30)
            for (int x = 5; x < 1000; x += 30) {
                const int fromLine = x - 2 * y;
                if (std::abs(fromLine) < 10) continue;
                EXPECT_TRUE(isLike(map.picture.at(x, y), pixelOf(fill.colours[fromLine > 0 ? 1 : 0])));
            }
    }
}

TEST_F(FillTest, ColoursTellBandsApart) {
    const auto lightness = [](const Colour& c) { return 0.3 * c.red + 0.6 * c.green + 0.1 * c.blue; };
    std::vector<float> levels;
    for (int k = 1; k <= 20; ++k) levels.push_back(static_cast<float>(k));
    const std::vector<Colour> rising = bandColours(levels);
    ASSERT_EQ(rising.size(), 21U);
    for (std::size_t k = 1; k < rising.size(); ++k) EXPECT_LT(lightness(rising[k]), lightness(rising[k - 1]));

    // On both sides of zero: cold below, warm above, as strong on one side as on the other.
    const std::vector<Colour> around = bandColours({-10, 0, 10, 20, 30});
    EXPECT_GT(around[1].blue, around[1].red);
    EXPECT_GT(around[2].red, around[2].blue);
    EXPECT_NEAR(lightness(around[1]), lightness(around[2]), 0.05);
    EXPECT_LT(lightness(around[5]), lightness(around[0]));
    // Zero inside a band.
    const Colour middle = bandColours({-5, 5})[1];
    EXPECT_GT(lightness(middle), 0.9);
}

}  // namespace
