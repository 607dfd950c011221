#include <cairo.h>
#include <fmt/format.h>
#include <gmock/gmock.h>

#include <cmath>
#include <memory>

#include "program.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// The pixels of a PNG.
struct Picture {
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface;

    explicit Picture(const std::string& path)
        : surface(cairo_image_surface_create_from_png(path.c_str()), cairo_surface_destroy) {
        EXPECT_EQ(cairo_surface_status(surface.get()), CAIRO_STATUS_SUCCESS);
    }

    int width() const { return cairo_image_surface_get_width(surface.get()); }
    int height() const { return cairo_image_surface_get_height(surface.get()); }

    int differences(const Picture& other) const {
        EXPECT_EQ(width(), other.width());
        int found = 0;
        const unsigned char* const data = cairo_image_surface_get_data(surface.get());
        const unsigned char* const otherData = cairo_image_surface_get_data(other.surface.get());
        const int bytes = cairo_image_surface_get_stride(surface.get()) * height();
        for (int k = 0; k < bytes; ++k) found += std::abs(data[k] - otherData[k]) > 64;
        return found;
    }

    /// How many pixels satisfy a test of red, green and blue.
    template <class Test>
    int count(Test test) const {
        int found = 0;
        const unsigned char* const data = cairo_image_surface_get_data(surface.get());
        for (int y = 0; y < height(); ++y)
            for (int x = 0; x < width(); ++x) {
                const unsigned char* const p =
                    data + y * cairo_image_surface_get_stride(surface.get()) + 4 * x;
                found += test(p[2], p[1], p[0]);
            }
        return found;
    }
};

bool isLowInk(int red, int green, int blue) { return red > 190 && green < 30 && blue < 30; }
bool isHighInk(int red, int green, int blue) { return blue > 200 && red < 20 && green < 70; }
bool isLineInk(int red, int green, int blue) { return red < 30 && green < 50 && blue > 90 && blue < 125; }
bool isGrey(int red, int green, int blue) { return red == green && green == blue && red > 218 && red < 230; }

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

TEST_F(ChartTest, RefusesGridsThatCoverNoArea) {
    GridText grid;
    grid.ny = 1;
    EXPECT_THAT(run({"chart", write("row", grid.text()), "-o", path("c.png")}).err,
                HasSubstr("it covers no area"));
    grid.ny = 11;
    grid.step = 1e20;
    EXPECT_THAT(run({"chart", write("huge", grid.text()), "-o", path("c.png")}).err,
                HasSubstr("not on the globe"));
    const std::string wind = write("wind", "diamond 11 WIND 2023 06 01 12 0 1000");
    EXPECT_THAT(run({"chart", wind, "-o", path("c.png")}).err, HasSubstr("wind grid (type 11)"));
    EXPECT_FALSE(std::filesystem::exists(path("c.png")));
}

}  // namespace
