#include <fmt/format.h>
#include <gmock/gmock.h>

#include <cmath>

#include "chart/palette.h"
#include "picture.h"
#include "program.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

bool isLowInk(const Pixel& p) { return p[0] > 190 && p[1] < 30 && p[2] < 30; }
bool isHighInk(const Pixel& p) { return p[2] > 200 && p[0] < 20 && p[1] < 70; }
bool isLineInk(const Pixel& p) { return p[0] < 30 && p[1] < 50 && p[2] > 90 && p[2] < 125; }
bool isGrey(const Pixel& p) { return p[0] == p[1] && p[1] == p[2] && p[0] > 218 && p[0] < 230; }

class ChartTest : public ProgramTest {
protected:
    Picture draw(const std::string& file, std::vector<std::string> options = {}) const {
        options.insert(options.begin(), {"chart", file, "-o", path("chart.png")});
        const Answer result = run(options);
        EXPECT_EQ(result.exitCode, 0) << result.err;
        return Picture(path("chart.png"));
    }
};

/// A low of -20 at one place, 0 far away.
auto lowAt(double longitude, double latitude) {
    return [=](double x, double y) {
        const double dx = std::remainder(x - longitude, 360.0);
        return -20 * std::exp(-(dx * dx + (y - latitude) * (y - latitude)) / 800);
    };
}

TEST_F(ChartTest, DrawsInTheFormatOfTheEnding) {
    const std::string file = sample("grids/h500_global.000");
    const Picture picture = draw(file, {"--size", "800x600"});
    EXPECT_EQ(picture.width(), 800);
    EXPECT_EQ(picture.height(), 600);
    EXPECT_EQ(draw(file).width(), 1400);
    run({"chart", file, "-o", path("c.svg")});
    EXPECT_THAT(readFile(path("c.svg")), StartsWith("<?xml"));
    run({"chart", file, "-o", path("c.PDF")});
    EXPECT_THAT(readFile(path("c.PDF")), StartsWith("%PDF"));
    EXPECT_THAT(run({"chart", file, "-o", "-"}).out, StartsWith("\x89PNG\r\n"));
}

TEST_F(ChartTest, MarksCentresAlsoOnTheSeam) {
    GridText globe;
    globe.west = 0;
    globe.south = -90;
    globe.step = 5;
    globe.nx = 72;
    globe.ny = 37;
    globe.hints = "4 -40 40 0 9999";
    for (const double longitude : {0.0, 5.0, 180.0, 355.0}) {
        globe.value = lowAt(longitude, 30);
        const std::string file = write("low", globe.text());
        // A window on the other side of the seam shows it whole.
        const std::string window = fmt::format("--bounds={},{},0,60", longitude - 60, longitude + 60);
        EXPECT_GT(draw(file, {window}).count(isLowInk), 50) << longitude;
        EXPECT_EQ(draw(file, {window}).count(isHighInk), 0) << longitude;
        EXPECT_EQ(draw(file, {window, "--no-centers"}).count(isLowInk), 0) << longitude;
    }
}

TEST_F(ChartTest, MissingPointsAreNoCentres) {
    GridText grid;
    grid.value = [](double x, double y) { return x == 105 && y == 25 ? 9999 : 100; };
    EXPECT_EQ(draw(write("hole", grid.text())).count(isHighInk), 0);
    // The lowest point lies beside the missing one.
    grid.value = [](double x, double y) { return x == 105 && y == 25 ? 9999 : std::hypot(x - 104, y - 25); };
    EXPECT_EQ(draw(write("beside", grid.text())).count(isLowInk), 0);
}

TEST_F(ChartTest, WindowsAWholeCircleApartAreTheSame) {
    const std::string file = sample("grids/t850_global_s2n.000");
    const Picture west = draw(file, {"--bounds", "-50,70,10,80"});
    EXPECT_LT(west.differences(draw(file, {"--bounds", "310,430,10,80"})), 100);
    EXPECT_GT(west.differences(draw(file, {"--bounds", "311,431,10,80"})), 10000);

    GridText grid;
    grid.west = -30;
    grid.value = lowAt(-25, 26);
    const Picture negative = draw(write("grid", grid.text()));
    grid.west = 330;
    EXPECT_LT(negative.differences(draw(write("grid", grid.text()), {"--bounds", "-30,-20,20,30"})), 100);
}

TEST_F(ChartTest, MissingAreasAreGrey) {
    GridText grid;
    grid.nx = 21;
    EXPECT_LT(draw(write("full", grid.text())).count(isGrey), 2000);
    grid.value = [](double longitude, double latitude) {
        return longitude > 110 ? 9999 : longitude + latitude;
    };
    const Picture half = draw(write("half", grid.text()));
    const double part = static_cast<double>(half.count(isGrey)) / (half.width() * half.height());
    EXPECT_GT(part, 0.3);
    EXPECT_LT(part, 0.5);
}

TEST_F(ChartTest, LinesOfTheBoldValueAreThick) {
    GridText grid;
    grid.value = [](double longitude, double latitude) { return longitude + latitude; };
    const int thin = draw(write("thin", grid.text())).count(isLineInk);
    grid.hints = "5 0 1000 0 130";
    const int thick = draw(write("thick", grid.text())).count(isLineInk);
    EXPECT_GT(thick, thin + 500);
}

TEST_F(ChartTest, LinesCarryTheirValues) {
    // Without its lines the chart has the letters of the margins only.
    const auto letters = [&](const std::string& levels) {
        run({"chart", sample("grids/h500_global.000"), "--no-centers", "--levels", levels, "-o",
             path("c.svg")});
        const std::string svg = readFile(path("c.svg"));
        int count = 0;
        for (auto at = svg.find("#glyph"); at != std::string::npos; at = svg.find("#glyph", at + 1)) ++count;
        return count;
    };
    const int none = letters("1000,2000,3000");
    EXPECT_GT(none, 50);
    EXPECT_GT(letters("540,560,580"), none + 3 * 2 * 3);
}

TEST_F(ChartTest, BarsShowAllBandsAndFit) {
    // The map is all below the levels, so that the other colours are those of the bar.
    const auto barColours = [&](const std::string& levels, const std::vector<float>& values) {
        const Picture chart = draw(write("grid", GridText{}.text()),
                                   {"--fill", "--no-centers", "--size", "330x600", "--levels", levels});
        for (int y = 0; y < chart.height(); ++y)
            EXPECT_EQ(chart.at(chart.width() - 2, y), (Pixel{255, 255, 255})) << "the bar is cut off";
        int found = 0;
        for (const velmar::tool::Colour& colour : velmar::tool::bandColours(values))
            found += chart.count([&](const Pixel& p) { return isLike(p, pixelOf(colour)); }) > 15;
        return found;
    };
    EXPECT_EQ(barColours("200", {200}), 2);
    EXPECT_EQ(barColours("200,300", {200, 300}), 3);
    EXPECT_EQ(barColours("200.123e-9,-1.23456e-20", {-1.23456e-20F, 200.123e-9F}), 3);
    std::string many = "200";
    std::vector<float> values{200};
    for (int k = 1; k < 60; ++k) {
        many += fmt::format(",{}", 200 + k);
        values.push_back(static_cast<float>(200 + k));
    }
    EXPECT_GT(barColours(many, values), 50);
    // Without data there are no levels, without levels no bands.
    GridText nothing;
    nothing.value = [](double, double) { return 9999; };
    EXPECT_GT(draw(write("nothing", nothing.text()), {"--fill"}).count(isGrey), 100000);
}

TEST_F(ChartTest, RefusesGridsThatCoverNoArea) {
    GridText grid;
    grid.ny = 1;
    EXPECT_THAT(run({"chart", write("row", grid.text()), "-o", path("c.png")}).err,
                HasSubstr("it covers no area"));
    grid.ny = 11;
    grid.step = 1e20;
    EXPECT_THAT(run({"chart", write("huge", grid.text()), "-o", path("c.png")}).err,
                HasSubstr("not on the globe"));
    EXPECT_FALSE(std::filesystem::exists(path("c.png")));
}

}  // namespace
