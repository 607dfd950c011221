#include <fmt/ranges.h>

#include <cmath>
#include <numeric>

#include "chart/paper/palette.h"
#include "picture.h"

namespace {

bool isLowInk(const Pixel& p) { return p[0] > 190 && p[1] < 30 && p[2] < 30; }
bool isHighInk(const Pixel& p) { return p[2] > 200 && p[0] < 20 && p[1] < 70; }
bool isLineInk(const Pixel& p) { return p[0] < 30 && p[1] < 50 && p[2] > 90 && p[2] < 125; }
bool isGrey(const Pixel& p) { return p[0] == p[1] && p[1] == p[2] && p[0] > 218 && p[0] < 230; }

class ChartTest : public PictureTest {
protected:
    Picture draw(const std::string& file, const Arguments& options = {}) const {
        return drawn({"chart", file}, options);
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
    for (const auto& [name, start] : {std::pair{"c.svg", "<?xml"}, {"c.PDF", "%PDF"}}) {
        run({"chart", file, "-o", path(name)});
        EXPECT_THAT(readFile(path(name)), StartsWith(start));
    }
    EXPECT_THAT(outOf({"chart", file, "-o", "-"}), StartsWith("\x89PNG\r\n"));
}

TEST_F(ChartTest, MarksCentresAlsoOnTheSeam) {
    GridText globe{.west = 0, .south = -90, .step = 5, .nx = 72, .ny = 37, .hints = "4 -40 40 0 9999"};
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
        const std::string svg = outOf({"chart", sample("grids/h500_global.000"), "--no-centers", "--levels",
                                       levels, "-o", "-", "--format", "svg"});
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
            found += chart.count(colour) > 15;
        return found;
    };
    EXPECT_EQ(barColours("200", {200}), 2);
    EXPECT_EQ(barColours("200,300", {200, 300}), 3);
    EXPECT_EQ(barColours("200.123e-9,-1.23456e-20", {-1.23456e-20F, 200.123e-9F}), 3);
    std::vector<float> many(60);
    std::iota(many.begin(), many.end(), 200.0F);
    EXPECT_GT(barColours(fmt::format("{}", fmt::join(many, ",")), many), 50);
    // Without data there are no levels, without levels no bands.
    const GridText nothing{.value = [](double, double) { return 9999; }};
    EXPECT_GT(draw(write("nothing", nothing.text()), {"--fill"}).count(isGrey), 100000);
}

TEST_F(ChartTest, RefusesGridsThatCoverNoArea) {
    expectReplies({"chart", "-o", path("c.png")},
                  {{{write("row", GridText{.ny = 1}.text())}, 1, "it covers no area"},
                   {{write("huge", GridText{.step = 1e20}.text())}, 1, "not on the globe"}});
    EXPECT_FALSE(std::filesystem::exists(path("c.png")));
}

}  // namespace
