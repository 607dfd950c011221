#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <deque>
#include <map>
#include <memory>
#include <numbers>
#include <random>
#include <span>

#include "chart/layers/lineLabels.h"
#include "chart/paper/lettering.h"
#include "common/text.h"
#include "compute/centers.h"
#include "compute/prominence.h"
#include "support/fields.h"

namespace {

using namespace velmar::tool;
using testing::ElementsAre;

/// A map of 100 by 50 degrees, ten paper units to a degree, and lines on it.
class LabelsTest : public testing::Test {
protected:
    LabelsTest()
        : surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1, 1), cairo_surface_destroy),
          ink_(cairo_create(surface_.get()), cairo_destroy),
          page_{ink_.get(), {{0, 100, 0, 50}, {50, 60, 1000, 500}}, {}} {}

    /// A line through places given in degrees.
    template <class Curve>
    void addLine(float value, double from, double to, Curve curve) {
        std::vector<float>& coordinates = coordinates_.emplace_back();
        for (int k = 0; k <= 400; ++k) {
            const auto [longitude, latitude] = curve(from + (to - from) * k / 400);
            coordinates.insert(coordinates.end(),
                               {static_cast<float>(longitude), static_cast<float>(latitude)});
        }
        lines_.emplace_back(Isoline{{coordinates}, value}, page_.map, 0, 0.3);
    }

    std::vector<LineLabel> place() {
        return placeLabels(page_, lines_, {12.5, std::vector<bool>(lines_.size(), false)});
    }

    TurnedBox boxOf(const LineLabel& label) {
        return {label.center, measureText(page_.ink, label.text, {.size = 12.5}), label.angle};
    }

    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> ink_;
    Page page_;
    std::deque<std::vector<float>> coordinates_;
    std::vector<PaperLine> lines_;
};

TEST_F(LabelsTest, LieUprightOnTheirLinesAndApart) {
    for (int k = 0; k < 12; ++k)
        addLine(static_cast<float>(500 + 4 * k), -20, 120,
                [&](double x) { return std::pair(x, 2 + 4.0 * k + 3 * std::sin(x / (4 + k))); });
    const TurnedBox taken{{550, 310}, {200, 200}, 0};
    page_.taken.take(taken);
    const std::vector<LineLabel> labels = place();
    EXPECT_GT(labels.size(), 12U);
    for (const LineLabel& label : labels) {
        const TurnedBox box = boxOf(label);
        EXPECT_TRUE(isInside(box, page_.map.box));
        EXPECT_FALSE(overlap(box, taken));
        EXPECT_LE(std::fabs(label.angle), std::numbers::pi / 2);
        EXPECT_LT(distance(lines_[label.line].at((label.gap.from + label.gap.to) / 2), label.center), 3);
        EXPECT_GT(label.gap.to - label.gap.from, box.size.width);
        EXPECT_EQ(label.text, std::to_string(500 + 4 * label.line));
        for (const LineLabel& other : labels) EXPECT_TRUE(&label == &other || !overlap(box, boxOf(other)));
    }
}

TEST_F(LabelsTest, AreLeftOutWhereThereIsNoRoom) {
    const auto circle = [](double radius) {
        return [=](double t) { return std::pair(50 + radius * std::cos(t), 25 + radius * std::sin(t)); };
    };
    addLine(1000, 0, 2 * std::numbers::pi, circle(1));  // no longer than two labels
    EXPECT_TRUE(place().empty());
    addLine(1000, 0, 2 * std::numbers::pi, circle(15));
    EXPECT_FALSE(place().empty());

    lines_.clear();
    for (int k = 0; k < 60; ++k)  // one line every three units of paper
        addLine(1000, 0, 100, [&](double x) { return std::pair(x, 10 + 0.3 * k); });
    for (const LineLabel& label : place()) EXPECT_TRUE(label.line < 4 || label.line > 55) << label.line;
}

TEST_F(LabelsTest, LinesAreWorkedOnInsideTheMapOnly) {
    // A thousand maps wide, so that almost all of it lies outside.
    addLine(7, -50000, 50000, [](double x) { return std::pair(x, 25 + x / 10000); });
    const std::vector<Stretch> stretches = lines_[0].stretchesInside(page_.map.box);
    ASSERT_EQ(stretches.size(), 1U);
    EXPECT_NEAR(stretches[0].to - stretches[0].from, 1000, 1);
    EXPECT_NEAR(lines_[0].at(stretches[0].from).x, 50, 0.1);

    addLine(7, 0, 100, [](double x) { return std::pair(x, 25 + 30 * std::sin(x / 10)); });
    double inside = 0;
    for (const auto& [from, to] : lines_[1].stretchesInside(page_.map.box)) {
        inside += to - from;
        for (const double s : {from + 0.01, (from + to) / 2, to - 0.01})
            EXPECT_TRUE(page_.map.box.contains(lines_[1].at(s)));
    }
    EXPECT_EQ(lines_[1].stretchesInside(page_.map.box).size(), 4U);
    EXPECT_GT(inside, 1000);
}

TEST(MapFrames, ShowGridsOnceAndInShape) {
    const auto circlesOf = [](const GeoBox& bounds, double west, double east) {
        const auto [first, last] = circlesInto(bounds, west, east);
        return std::pair(first, last);
    };
    EXPECT_EQ(circlesOf({-60, 60, 0, 10}, 0, 360), std::pair(-1, 0));
    EXPECT_EQ(circlesOf({170, 190, 0, 10}, -180, -175), std::pair(1, 1));
    const auto [first, last] = circlesInto({0, 100, 0, 10}, 110, 120);
    EXPECT_LT(last, first);

    const PaperBox room{0, 0, 1300, 700};
    const PaperBox north = fitMap({0, 20, 50, 70}, room).box;
    EXPECT_NEAR(north.width / north.height, 0.5, 0.01);
    const PaperBox globe = fitMap({0, 360, -90, 90}, room).box;
    EXPECT_NEAR(globe.width / globe.height, 2, 0.01);
    EXPECT_EQ(globe.width, 1300);
}

TEST(Prominence, IsTheDropToTheHighestPass) {
    // A summit of 9, one of 7 behind a pass of 4, one of 6 behind a gap, and a shoulder of 5.
    const std::array<float, 9> ridge{1, 9, 5, 4, 7, 2, 9999, 6, 3};
    const velmar::grid::GridView grid{ridge.data(), 9, 1};
    EXPECT_THAT(prominences(grid, 1, false), ElementsAre(0, 8, 0, 0, 3, 0, 0, 0, 0));
    EXPECT_THAT(prominences(grid, -1, false)[3], 3);
    // Round the globe the last column is the first one: 6 leads to 3, and on to the ground beside 9.
    const std::array<float, 6> ring{5, 8, 1, 6, 4, 5};
    EXPECT_THAT(prominences({ring.data(), 6, 1}, 1, true), ElementsAre(0, 7, 0, 2, 0, 0));
}

/// A centre far above its surroundings has the same place and value when it shares a pixel with others.
TEST(Centers, OfFineGridsAreThoseOfTheWholeGrid) {
    std::mt19937 random(11);
    const std::vector<float> field = velmar::test::smoothField(random, 121, 61);
    const GlobeGrid grid{{.values = {}}, {field.data(), 121, 61}, {0, 120, 1, 0, 60, 1}};
    const auto exact = prominentCenters(grid, 0);
    const auto inBlocks = prominentCenters(grid, 0, 3);
    ASSERT_GT(exact.size(), 3U);
    EXPECT_LE(inBlocks.size(), exact.size());
    for (const ProminentCenter& center : std::span(exact).first(3)) {
        const auto same = std::ranges::find_if(inBlocks, [&](const ProminentCenter& other) {
            return other.longitude == center.longitude && other.latitude == center.latitude;
        });
        ASSERT_NE(same, inBlocks.end());
        EXPECT_EQ(same->value, center.value);
        EXPECT_LE(same->prominence, center.prominence);
    }
}

TEST(ThinnedGrids, HaveTheMeansAroundTheirPoints) {
    // A slope along latitude, without data in an area, that goes round the globe.
    constexpr int nx = 361;
    constexpr int ny = 41;
    std::vector<float> field;
    for (int j = 0; j < ny; ++j)
        for (int i = 0; i < nx; ++i)
            field.push_back(i > 100 && i < 140 && j > 9 && j < 31 ? 9999.0F
                                                                  : static_cast<float>(j + i % 360 % 2));
    const GlobeGrid whole{{.values = {}}, {field.data(), nx, ny}, {0, 360, 1, -20, 20, 1}};
    const GlobeGrid thin = thinned(whole, 91, 21);
    ASSERT_EQ(thin.grid.nx, 91);
    ASSERT_EQ(thin.grid.ny, 21);
    EXPECT_EQ(thin.lattice.longitudeStep, 4);
    EXPECT_EQ(thin.lattice.latitudeStep, 2);
    for (int j = 1; j < 20; ++j) {
        EXPECT_EQ(thin.grid.at(0, j), thin.grid.at(90, j)) << "the seam";
        EXPECT_NEAR(thin.grid.at(0, j), 2.0F * static_cast<float>(j) + 0.5F, 1e-4);
        EXPECT_NEAR(thin.grid.at(60, j), 2.0F * static_cast<float>(j) + 0.5F, 1e-4);
    }
    EXPECT_EQ(thin.grid.at(30, 10), 9999);
    EXPECT_NE(thin.grid.at(24, 10), 9999);
    EXPECT_EQ(thinned(whole, 1000, 1000).grid.nx, nx);
}

TEST(TurnedBoxes, OverlapOnlyWhereTheyMeet) {
    const TurnedBox flat{{0, 0}, {40, 10}, 0};
    EXPECT_TRUE(overlap(flat, {{30, 0}, {40, 10}, 0}));
    EXPECT_FALSE(overlap(flat, {{41, 0}, {40, 10}, 0}));
    // Their upright hulls meet, they do not.
    const TurnedBox slanted{{0, 0}, {100, 10}, 0.785};
    EXPECT_FALSE(overlap(slanted, {{25, -25}, {20, 20}, 0}));
    EXPECT_TRUE(overlap(slanted, {{25, 25}, {20, 20}, 0}));
}

TEST(Texts, DegreesAndTimesReadAsAForecasterWritesThem) {
    EXPECT_EQ(longitudeText(240), "120°W");
    EXPECT_EQ(longitudeText(-180), "180°");
    EXPECT_EQ(longitudeText(360), "0°");
    EXPECT_EQ(latitudeText(-37.5), "37.5°S");
    EXPECT_EQ(plainNumber(-0.0), "0");
    EXPECT_EQ(writtenNumber(0.1F), 0.1);

    velmar::files::FieldHeader field{};
    field.year = 2024;
    field.month = 2;
    field.day = 28;
    field.hour = 12;
    field.forecastHour = 36;
    EXPECT_EQ(validTimeText(field), "2024-03-01 00:00");
    field.day = 30;
    EXPECT_EQ(validTimeText(field), std::nullopt);
    EXPECT_EQ(startTimeText(field), "2024-2-30 12 h");
    for (const auto& [year, start] :
         std::map<int, std::string>{{0, "2000"}, {49, "2049"}, {50, "1950"}, {99, "1999"}, {100, "0100"}}) {
        field.year = year;
        field.day = 28;
        EXPECT_EQ(startTimeText(field), start + "-02-28 12:00");
        EXPECT_EQ(validTimeText(field)->substr(0, 4), start);
    }
}

TEST(Texts, BrokenGbkIsMarkedAndNothingAfterItLost) {
    EXPECT_EQ(gbkToUtf8("\xB8\xDF\xB6\xC8"), "高度");
    EXPECT_EQ(gbkToUtf8("a\xFF"
                        "b\xB8\xDF\xB6"),
              "a�b高�");
    EXPECT_EQ(gbkToUtf8(std::string(1000, '\xB8') + "\xDF"), gbkToUtf8(std::string(1000, '\xB8')) + "�");
}

}  // namespace
