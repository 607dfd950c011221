#include <gmock/gmock.h>

#include "chart/soundingDiagram.h"
#include "chart/windBarb.h"
#include "picture.h"
#include "program.h"
#include "soundingTexts.h"

namespace {

using namespace velmar::tool;
using testing::ElementsAre;
using testing::HasSubstr;

/// A wind at the middle of a sheet of 200 x 200.
Picture barb(double from, double speed, bool southern) {
    Picture picture(200, 200);
    cairo_t* const ink = cairo_create(picture.surface.get());
    setColour(ink, white);
    cairo_paint(ink);
    setColour(ink, black);
    drawWindBarb(ink, {100, 100}, from, speed, southern, 60);
    cairo_destroy(ink);
    return picture;
}

bool isInk(const Pixel& p) { return p[0] < 128; }

int inkIn(const Picture& picture, int left, int right, int top, int bottom) {
    int found = 0;
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x) found += isInk(picture.at(x, y));
    return found;
}

TEST(WindBarb, PointsToWhereTheWindComesFromAndStandsInItsBox) {
    for (const double speed : {0.0, 2.5, 5.0, 17.5, 47.5, 90.0})
        for (int from = 0; from < 360; from += 35)
            for (const bool southern : {false, true}) {
                const Picture picture = barb(from, speed, southern);
                TurnedBox box = windBarbBox({100, 100}, from, speed, southern, 60);
                box.size = {box.size.width + 5, box.size.height + 5};
                for (int y = 0; y < 200; ++y)
                    for (int x = 0; x < 200; ++x)
                        ASSERT_TRUE(!isInk(picture.at(x, y)) || overlap(box, {{x + 0.5, y + 0.5}, {1, 1}, 0}))
                            << speed << " from " << from;
            }
    // From the west: the shaft runs to the left, barbs stand above it in the north and below it in the south.
    const Picture north = barb(270, 20, false);
    EXPECT_GT(inkIn(north, 40, 100, 99, 102), 55);
    EXPECT_GT(inkIn(north, 20, 100, 70, 97), 40);
    EXPECT_EQ(inkIn(north, 0, 200, 104, 200), 0);
    EXPECT_EQ(inkIn(north, 103, 200, 0, 200), 0);
    const Picture south = barb(270, 20, true);
    EXPECT_EQ(inkIn(south, 0, 200, 0, 96), 0);
    EXPECT_GT(inkIn(south, 20, 100, 103, 130), 40);
}

TEST(WindBarb, RoundsSpeedsToHalfBarbs) {
    const auto same = [](double a, double b) {
        return barb(30, a, false).differences(barb(30, b, false)) == 0;
    };
    EXPECT_TRUE(same(0, 1.24));
    EXPECT_FALSE(same(1.24, 1.26));
    EXPECT_TRUE(same(1.26, 3.7));
    EXPECT_FALSE(same(3.7, 3.8));
    EXPECT_FALSE(same(22.5, 25));
    EXPECT_TRUE(same(23.8, 26.2));
    EXPECT_TRUE(isInk(barb(270, 25, false).at(43, 95))) << "pennants are filled";
    EXPECT_FALSE(isInk(barb(270, 22.5, false).at(43, 95)));
    EXPECT_TRUE(same(1e9, 1e300));
    EXPECT_TRUE(same(NAN, 0));
}

class SoundingChartTest : public ProgramTest {
protected:
    /// The chart of a sounding of one temperature and dew point.
    Picture isothermal(int temperature, double latitude = 40) const {
        const auto at = [&](int pressure) {
            return TestLevel{pressure, 0, temperature, temperature - 20, 270, 15};
        };
        const std::string file = write("f", soundingFile({{1, latitude, {at(1000), at(500), at(150)}}}));
        EXPECT_EQ(run({"chart", file, "-o", path("f.png")}).exitCode, 0);
        return Picture(path("f.png"));
    }
};

/// The middle of what a row has of a colour, left of the key of the lines.
double middle(const Picture& picture, int row, const Colour& colour) {
    double sum = 0;
    int found = 0;
    for (int x = 0; x < 810; ++x)
        if (isLike(picture.at(x, row), pixelOf(colour))) {
            sum += x;
            ++found;
        }
    EXPECT_GT(found, 0) << row;
    return sum / found;
}

TEST_F(SoundingChartTest, LinesRunAlongTheirIsotherms) {
    const SoundingDiagram diagram{{0, 0, 740, 740}};
    const double degree = diagram.toPaper(500, 1).x - diagram.toPaper(500, 0).x;
    const Picture cold = isothermal(-30);
    const Picture warmer = isothermal(-20);
    for (const int row : {400, 500, 700}) {
        const double x = middle(cold, row, temperatureRed);
        EXPECT_NEAR(middle(cold, row + 100, temperatureRed), x - 100, 1) << "isotherms rise at 45 degrees";
        EXPECT_NEAR(middle(warmer, row, temperatureRed), x + 10 * degree, 1);
        EXPECT_NEAR(middle(cold, row, dewPointGreen), x - 20 * degree, 1.5);
    }
    // Equal ratios of pressure are equally high.
    EXPECT_NEAR(diagram.height(800) - diagram.height(400), diagram.height(400) - diagram.height(200), 1e-9);
    // The winds stand on their staff, mirrored in the south.
    EXPECT_GT(cold.differences(isothermal(-30, -40)), 30);
}

TEST_F(SoundingChartTest, SeveralStationsMakeSeveralPictures) {
    const TestLevel low{850, 1500, 10, 5, 350, 12};
    const TestLevel high{500, 5500, -20, -25, 350, 12};
    const std::string file =
        write("f.000", soundingFile({{7, 40, {low, high}}, {8, -40, {low}}, {7, 40, {}}}));
    const Answer first = run({"chart", file, "-o", path("first.png")});
    EXPECT_EQ(first.exitCode, 0);
    EXPECT_THAT(first.err, HasSubstr("this is station 7, the first of 3 soundings"));
    const Answer chosen = run({"chart", file, "-o", path("chosen.png"), "--station", "8"});
    EXPECT_EQ(chosen.err, "");
    EXPECT_GT(Picture(path("first.png")).differences(Picture(path("chosen.png"))), 100);
    ASSERT_EQ(run({"chart", file, "--out-dir", path("charts"), "--size", "600x400"}).exitCode, 0);
    EXPECT_THAT(filesIn("charts"), ElementsAre("f.000_7.png", "f.000_7_2.png", "f.000_8.png"));
    EXPECT_EQ(Picture(path("charts/f.000_8.png")).width(), 600);

    ASSERT_EQ(run({"chart", file, "-o", path("all.pdf")}).exitCode, 0);
    ASSERT_EQ(run({"chart", file, "-o", path("one.pdf"), "--station", "8"}).exitCode, 0);
    EXPECT_THAT(readFile(path("all.pdf")), HasSubstr("/Count 3"));
    EXPECT_THAT(readFile(path("one.pdf")), HasSubstr("/Count 1"));
    EXPECT_EQ(run({"chart", file, "-o", path("one.svg"), "--fill"}).exitCode, 0);

    EXPECT_THAT(run({"chart", file, "-o", path("no.png"), "--station", "9"}).err,
                HasSubstr("but of: 7, 8, 7"));
    EXPECT_THAT(run({"chart", write("none", soundingFile({})), "-o", path("no.png")}).err,
                HasSubstr("it has no sounding that can be read"));
    EXPECT_FALSE(std::filesystem::exists(path("no.png")));
}

}  // namespace
