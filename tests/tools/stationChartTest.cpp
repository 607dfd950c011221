#include "chart/chartTexts.h"
#include "chart/layers/stationPlotLayer.h"
#include "picture.h"
#include "stationTexts.h"

namespace {

using namespace velmar::tool;

bool isBlack(const Pixel& p) { return p[0] < 160 && p[1] < 160 && p[2] < 160; }
bool isValueInk(const Pixel& p) { return p[0] > p[1] + 80; }

/// A station list with elements 1 to 4: value, wind direction, wind speed, cloud.
struct Reports {
    StationFile file{};
    StationPlot plot{.element = 1, .quantity = "heat, °C", .wind = WindElements{2, 3}, .cloud = 4};

    Reports() {
        file.firstElement = 1;
        file.elementCount = 4;
    }
    void add(float longitude, float latitude, const std::array<float, 4>& values) {
        file.longitudes.push_back(longitude);
        file.latitudes.push_back(latitude);
        file.values.insert(file.values.end(), values.begin(), values.end());
    }
};

constexpr float none = 9999;

/// Reports on a map of 20 degrees, 15 pixels each, without margins.
struct Drawn {
    BareMap map;
    std::string remark;

    Drawn(const Reports& reports, const GeoBox& bounds) : map(bounds, 300, 300) {
        StationPlotLayer layer(reports.file, reports.plot);
        map.draw(layer);
        remark = layer.remark();
    }
    int blackIn(int left, int top, int width, int height) const {
        return map.picture.countIn(left, left + width, top, top + height, isBlack);
    }
};

TEST(StationPlots, BarbsPointToWhereTheWindComesFrom) {
    const auto plot = [](float direction, float speed, float latitude) {
        Reports reports;
        reports.add(10, latitude, {none, direction, speed, none});
        return Drawn(reports, {0, 20, latitude - 10.0, latitude + 10.0});
    };
    // The station is in the middle, at 150, 150.
    for (const float latitude : {20.0F, -20.0F}) {
        const Drawn north = plot(0, 10, latitude);
        EXPECT_GT(north.blackIn(140, 115, 20, 30), 25);
        EXPECT_EQ(north.blackIn(140, 155, 20, 40), 0);
        const int right = north.blackIn(153, 110, 20, 35);
        const int left = north.blackIn(127, 110, 20, 35);
        EXPECT_EQ(latitude > 0, right > 10);
        EXPECT_EQ(latitude<0, left> 10);
        EXPECT_GT(plot(90, 10, latitude).blackIn(155, 140, 30, 20), 25);
    }
    // Calm is a ring; a wind that is none draws nothing.
    const int dot = plot(none, none, 20).blackIn(0, 0, 300, 300);
    EXPECT_EQ(dot, 0) << "nothing is known of the station";
    EXPECT_GT(plot(0, 0, 20).blackIn(140, 140, 20, 20), 15);
    EXPECT_EQ(plot(0, 0, 20).blackIn(140, 100, 20, 38), 0);
    EXPECT_EQ(plot(400, 10, 20).blackIn(0, 0, 300, 300), 0);
    EXPECT_EQ(plot(90, -3, 20).blackIn(0, 0, 300, 300), 0);
    EXPECT_EQ(plot(90, 1e30F, 20).blackIn(0, 0, 300, 300), 0);
}

TEST(StationPlots, CirclesFillWithCloud) {
    const auto darkness = [](float eighths) {
        Reports reports;
        reports.add(10, 30, {none, none, none, eighths});
        const Drawn drawn(reports, {0, 20, 20, 40});
        int sum = 0;
        drawn.map.picture.count([&](const Pixel& p) { return (sum += 255 - p[0]) > 0; });
        return sum;
    };
    for (int eighths = 0; eighths < 8; ++eighths)
        EXPECT_LT(darkness(static_cast<float>(eighths)) + 300, darkness(static_cast<float>(eighths + 1)))
            << eighths;
    EXPECT_GT(darkness(9), darkness(0) + 300);
    EXPECT_EQ(darkness(2.5F), 0);
    EXPECT_EQ(darkness(10), 0);
}

TEST(StationPlots, CoverTheMapEvenlyAndValuesComeFirst) {
    Reports reports;
    reports.add(5, 25, {none, 90, 10, none});
    reports.add(5, 25, {12.5F, 90, 10, none});
    EXPECT_GT(Drawn(reports, {0, 20, 20, 40}).map.picture.count(isValueInk), 10);

    for (int k = 0; k < 4000; ++k)
        reports.add(static_cast<float>(k % 200) / 10, 20 + static_cast<float>(k) / 200,
                    {7, none, none, none});
    const Drawn crowd(reports, {0, 20, 20, 40});
    for (int y = 0; y < 300; y += 60)
        for (int x = 0; x < 300; x += 60) EXPECT_GT(crowd.blackIn(x, y, 60, 60), 8) << x << ' ' << y;
    const int placed = std::stoi(crowd.remark);
    EXPECT_THAT(crowd.remark, HasSubstr(" of 4002 stations"));
    EXPECT_GT(placed, 60);
    EXPECT_LT(placed, 600);
}

TEST(StationPlots, CaptionsSayWhatIsPlotted) {
    Reports reports;
    reports.add(359, 30, {5, 90, 10, none});
    reports.add(1, 31, {-7.5F, none, none, none});
    reports.add(180, 31, {100, none, none, none});
    ChartTexts texts = textsOf(reports.file, reports.plot, {-10, 10, 20, 40});
    EXPECT_EQ(texts.caption, "heat, °C (field 1), and wind");
    EXPECT_EQ(texts.extremes, "highest 5 at 30°N 1°W, lowest -7.5 at 31°N 1°E");
    EXPECT_EQ(texts.subtitle, "");
    texts = textsOf(reports.file, {.element = 1, .quantity = {}, .wind = {}, .cloud = {}}, {20, 30, 0, 1});
    EXPECT_EQ(texts.caption, "values (field 1)");
    EXPECT_EQ(texts.extremes, "no data in this area");
}

class StationChartTest : public PictureTest {
protected:
    StationFile read(const std::string& text) const {
        return readStationFile(readFileHead(write("s", text)));
    }
    Picture draw(const Arguments& arguments) const { return drawn({"chart", "--size=700x500"}, arguments); }
};

TEST_F(StationChartTest, FilesOfAllTypesAreReadByTheNumbersOfTheirFields) {
    const StationFile upper =
        read("diamond 2 U 2011 10 8 0 500 2 1 60 56 302 1 568 -17 1 276 21 2 93 56 452 1 567 -20 15 298 5");
    EXPECT_EQ(upper.stationCount(), 2U);
    EXPECT_EQ(upper.field.level, 500);
    EXPECT_EQ(upper.customaryElement, 7);
    EXPECT_EQ(upper.value(1, 6), 567);
    EXPECT_EQ(upper.value(1, upper.lastElement()), 5);
    const StationFile forecast = read(
        "diamond 8 F 2011 10 8 0 72 2 1 -86 32 95 78 61 4 19 22 0.4 90 13 2 -134 58 767 97 67 2 0 1 2 113");
    EXPECT_EQ(forecast.stationCount(), 1U) << "the second is cut off";
    EXPECT_EQ(forecast.promised, 2);
    EXPECT_EQ(forecast.field.forecastHour, 72);
    EXPECT_EQ(forecast.value(0, 5), 78);
    EXPECT_EQ(forecast.value(0, 12), 13);
    const StationFile list = read("diamond 16 H 1 6894 -152 60 12");
    EXPECT_EQ(list.value(0, 4), 12);
    EXPECT_FALSE(list.hasTime());
    EXPECT_TRUE(upper.hasTime());
    // Every other report has two extra values.
    const StationFile surface = read(surfaceReports({{101, 31, 1}, {102, 32, 2}}));
    EXPECT_FALSE(surface.hasValue(0, 25));
    EXPECT_NEAR(surface.value(1, 26), -0.4, 1e-6);
    EXPECT_EQ(surface.lastElement(), 26);
}

TEST_F(StationChartTest, WhatIsPlottedCanBeChosen) {
    const std::string upper = sample("stations/upper500_cities.000");
    const Picture customary = draw({upper});
    EXPECT_EQ(draw({upper, "--field", "7", "--wind", "9,10"}).differences(customary), 0);
    EXPECT_GT(draw({upper, "--field", "6"}).differences(customary), 1000);
    EXPECT_GT(draw({upper, "--wind", "9,6"}).differences(customary), 1000);
    EXPECT_GT(customary.count(isBlack), draw({upper, "--no-wind"}).count(isBlack) + 500);
    for (const char* name : {"sfc_extra_95031902.000", "three_values_95031902.000", "forecast_capitals.000",
                             "heights_north.000"})
        EXPECT_GT(draw({sample(std::string("stations/") + name)}).count(isValueInk), 400) << name;
    // Stations on both sides of Greenwich are brought together.
    const Picture seam = draw({write("seam", stationValues({{359, 50, 1}, {1, 52, 3}}))});
    EXPECT_EQ(seam.differences(draw({write("seam", stationValues({{-1, 50, 1}, {1, 52, 3}}))})), 0);
}

TEST_F(StationChartTest, RefusesInWords) {
    const std::string upper = sample("stations/upper500_cities.000");
    expectReplies(
        {"chart", "-o", path("c.png")},
        {{{upper, "--field", "11"}, 1, "no element 11, only 6 to 10"},
         {{upper, "--wind", "5,6"}, 1, "no element 5"},
         {{upper, "--wind", "9"}, 2, "not two numbers of fields"},
         {{upper, "--wind", "9.5,10"}, 2, "not two numbers of fields"},
         {{write("none", stationValues({{1, 2, 9999}}))}, 1, "no station has a value of element 1"},
         {{write("cut", "diamond 16 H x")}, 1, "the number of stations is expected"},
         {{upper, "--fill", "--density", "3"}, 0, "a station file has no bands to be filled, streamlines"},
         {{sample("grids/h500_global.000"), "--field", "1"}, 0, "a grid file has no stations"}});
}

}  // namespace
