#include <gmock/gmock.h>

#include <cmath>
#include <deque>
#include <memory>
#include <numbers>

#include "chart/lettering.h"
#include "chart/lineLabels.h"

namespace {

using namespace velmar::tool;

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
    const auto circlesOf = [](const Bounds& bounds, double west, double east) {
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

}  // namespace
