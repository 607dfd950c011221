#include <cmath>

#include "program.h"
#include "read/windFile.h"
#include "windText.h"

namespace {

using namespace velmar::tool;

constexpr double radian = 57.29577951308232;

class WindTest : public ProgramTest {
protected:
    GridFile computed(const WindText& wind, const std::string& quantity) const {
        outOf({"wind", write("w", wind.text()), "--" + quantity, "-o", path("q.000")});
        return readGridFile(path("q.000"));
    }
};

TEST_F(WindTest, SpeedIsAGridFileOfTheSamePlaceAndTime) {
    WindText wind;
    wind.title = "\xB7\xE7";
    wind.northFirst = true;
    wind.u = [](double x, double y) { return x == 103 && y == 25 ? 9999 : 3 * (y - 20); };
    wind.v = [](double x, double y) { return x == 104 && y == 25 ? 9999 : -4 * (y - 20); };
    const GridFile speed = computed(wind, "speed");
    for (int row = 0; row < 11; ++row)
        for (int column = 0; column < 11; ++column)
            EXPECT_EQ(speed.values.at(column, row),
                      row == 5 && (column == 3 || column == 4) ? 9999.0F : 5.0F * static_cast<float>(row));
    expectHolds(infoOf(path("q.000")),
                R"({"title": "风_speed", "valid": "2024-03-01 00:00", "level": 500,
                    "latitudes": {"start": 20, "end": 30, "step": 1, "count": 11},
                    "contours": {"interval": 5, "start": 0, "end": 50, "smoothing": 0, "bold": 0}})");
    EXPECT_THAT(outOf({"wind", path("w"), "--speed", "--scale", "2", "-o", "-", "--format", "csv"}),
                HasSubstr("102,25,50\n103,25,\n104,25,\n105,25,50\n"));
}

TEST_F(WindTest, VorticityOfARotatingEarthIsTwiceItsTurningAsSeenFromAbove) {
    WindText wind;
    wind.circling().u = [](double, double y) { return 20 * std::cos(y / radian); };
    const GridFile vorticity = computed(wind, "vorticity");
    const GridFile divergence = computed(wind, "divergence");
    for (int row = 1; row < 16; ++row) {
        const double exact = 2 * 20 / 6.37e6 * std::sin((10 * row - 80) / radian);
        for (int column = 0; column < 36; ++column) {
            EXPECT_NEAR(vorticity.values.at(column, row), exact, 2e-7) << "the differences span 20 degrees";
            EXPECT_NEAR(divergence.values.at(column, row), 0, 1e-10);
        }
    }
    EXPECT_EQ(vorticity.values.at(7, 0), 9999.0F);
    EXPECT_EQ(vorticity.values.at(7, 16), 9999.0F);
}

TEST_F(WindTest, TheSeamIsAColumnAsAnyOther) {
    for (const std::string quantity : {"divergence", "vorticity"}) {
        const auto turnedBy = [&](double shift) {
            WindText wind;
            wind.circling();
            const auto wave = [=](double x, double y) {
                return std::round(100 * std::sin((x + shift) / radian)) + y;
            };
            wind.u = wave;
            wind.v = wave;
            return computed(wind, quantity);
        };
        const GridFile here = turnedBy(0);
        const GridFile turned = turnedBy(90);
        for (int row = 0; row < 17; ++row)
            for (int column = 0; column < 36; ++column)
                ASSERT_NEAR(turned.values.at(column, row), here.values.at((column + 9) % 36, row), 1e-10);
        EXPECT_NE(here.values.at(0, 8), 9999.0F);
    }
    // A field that ends has edges, and the divergence of a wind that grows eastward is positive.
    WindText wind;
    wind.u = [](double x, double) { return x; };
    const GridFile open = computed(wind, "divergence");
    EXPECT_EQ(open.values.at(0, 5), 9999.0F);
    EXPECT_EQ(open.values.at(10, 5), 9999.0F);
    EXPECT_NEAR(open.values.at(5, 5), radian / 6.37e6 / std::cos(25 / radian), 1e-9);
}

TEST_F(WindTest, LevelsOfDerivativesSuitMostValues) {
    const std::string file = sample("winds/wind500_global.000");
    outOf({"wind", file, "--vorticity", "--scale", "1e5", "-o", path("q.000")});
    const json info = infoOf(path("q.000"));
    // Missing is nothing but the rows at the poles.
    expectHolds(info, R"({"contours": {"interval": 2, "start": -8, "end": 8}, "missing": 288})");
    EXPECT_GT(info["largest"]["value"], 16);
}

TEST_F(WindTest, InfoTellsTheStrongestWind) {
    WindText wind;
    wind.u = [](double x, double y) { return x == 107 && y == 24 ? -30 : 0; };
    wind.v = [](double x, double y) { return x == 107 && y == 24 ? 30 : y == 20 ? 9999 : 0; };
    wind.northFirst = true;
    const std::string file = write("w", wind.text());
    const json info = infoOf(file);
    expectHolds(info, R"({"latitudes": {"start": 20}, "values": 121, "missing": 11,
                          "strongest": {"direction": 135, "latitude": 24}})");
    EXPECT_NEAR(info["meanSpeed"], std::sqrt(1800) / 110, 1e-6);
    EXPECT_NEAR(info["strongest"]["speed"], std::sqrt(1800), 1e-5);
    EXPECT_THAT(outOf({"info", file}), HasSubstr("strongest   42.4 m/s from 135° at 24°N 107°E\n"));

    wind.u = [](double, double) { return 9999; };
    expectHolds(infoOf(write("none", wind.text())), R"({"strongest": null})");
    wind.u = wind.v = [](double, double) { return 0; };
    EXPECT_THAT(outOf({"info", write("calm", wind.text())}), HasSubstr("strongest   0 m/s from 0°"));
}

TEST_F(WindTest, SaysInWordsWhatIsWrong) {
    const std::string head = "diamond 11 T 2024 1 1 0 0 500 1 ";
    const std::vector<std::pair<std::string, std::string>> files{
        {"diamond 11", "its first line cannot be read"},
        {"diamond 11 MY TITLE 2024", "its header cannot be read: 14 numbers"},
        {head + "1 100 101 20 21 2 0", "its header cannot be read: 14 numbers"},
        {head + "1 100 101 20 21 2 2 1 2 3 x", "a value of the eastward wind cannot be read"},
        {head + "-1 100 101 21 20 2 2 1 2 3", "a value of the eastward wind cannot be read"},
        {head + "1 100 101 20 21 2 2 1 2 3 4 5", "a value of the northward wind cannot be read"},
        {head + "-1 100 101 21 20 2 2 1 2 3 4 5", "a value of the northward wind cannot be read"},
        {head + "1 100 inf 20 21 1 1 1 2",
         "the longitudes and latitudes of its header are not all finite numbers"},
        {GridText{}.text(), "it holds something else than a wind grid (type 11)"},
    };
    const Arguments speed{"wind", "--speed", "-o", path("no.000")};
    for (const auto& [text, sentence] : files)
        expectReplies(speed, {{{write("f", text)}, 1, "velmar: " + path("f") + ": " + sentence}});
    const std::string good = write("good", WindText{}.text());
    expectReplies(speed, {{{good, "--vorticity"}, 2, "1 option"}, {{good, "--scale=0"}, 2, "other than 0"}});
    expectReplies({"wind", good, "-o", path("no.000")}, {{{}, 2, "1 option"}});
    EXPECT_FALSE(std::filesystem::exists(path("no.000")));
    expectReplies({"wind", write("f", WindText{.nx = 2}.text()), "--vorticity", "-o", path("q.000")},
                  {{{}, 0, "there is no point with a vorticity"}});
}

}  // namespace
