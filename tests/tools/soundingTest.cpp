#include <fmt/format.h>

#include <cmath>

#include "chart/layers/windBarb.h"
#include "chart/soundingDiagram.h"
#include "compute/soundingIndices.h"
#include "compute/thermodynamics.h"
#include "picture.h"

namespace {

using namespace velmar::tool;

/// A level of a sounding: hPa, height, temperature, dew point, direction and speed of the wind.
using TestLevel = std::vector<int>;

struct TestSounding {
    int number;
    double latitude;
    std::vector<TestLevel> levels;
};

/// A file of soundings (type 5) at longitude 100 and height 50.
std::string soundingFile(const std::vector<TestSounding>& soundings,
                         const std::string& date = "2024 2 28 12") {
    std::string text = fmt::format("diamond 5 TEST {} {}\n", date, soundings.size());
    for (const auto& [number, latitude, levels] : soundings) {
        text += fmt::format("{} 100 {} 50 {}\n", number, latitude, 6 * levels.size());
        for (const TestLevel& level : levels) {
            for (const int value : level) text += fmt::format("{} ", value);
            text += "\n";
        }
    }
    return text;
}

/// Bolton (1980), equation 43: what lifted air keeps.
double equivalentPotentialTemperature(double pressure, double temperature, double dewPoint) {
    const double kelvin = temperature + zeroCelsius;
    const double ratio = mixingRatio(pressure, dewPoint) * 1000;
    const double level = liftingCondensationLevel(pressure, temperature, dewPoint).temperature + zeroCelsius;
    return kelvin * std::pow(1000 / pressure, 0.2854 * (1 - 0.28e-3 * ratio)) *
           std::exp((3.376 / level - 0.00254) * ratio * (1 + 0.81e-3 * ratio));
}

TEST(Thermodynamics, LiftedAirKeepsItsEquivalentPotentialTemperature) {
    for (const double temperature : {-20.0, 0.0, 15.0, 30.0})
        for (const double depression : {0.0, 5.0, 20.0})
            for (const double top : {700.0, 500.0, 300.0}) {
                const double dewPoint = temperature - depression;
                const auto [condensation, coolest] = liftingCondensationLevel(950, temperature, dewPoint);
                const double lifted = liftedTemperature(950, temperature, dewPoint, top);
                if (condensation <= top) {
                    EXPECT_NEAR(lifted, dryAdiabat(temperature, 950, top), 1e-9);
                    continue;
                }
                EXPECT_NEAR(equivalentPotentialTemperature(top, lifted, lifted),
                            equivalentPotentialTemperature(950, temperature, dewPoint), 1.2);
                EXPECT_NEAR(moistAdiabat(lifted, top, condensation), coolest, 1e-3) << "the way back";
            }
}

TEST(Thermodynamics, SaturationAgreesWithTables) {
    // Smithsonian Meteorological Tables: hPa over water.
    EXPECT_NEAR(saturationVapourPressure(-30), 0.5088, 0.002);
    EXPECT_NEAR(saturationVapourPressure(0), 6.1078, 0.02);
    EXPECT_NEAR(saturationVapourPressure(30), 42.430, 0.1);
    EXPECT_NEAR(mixingRatio(1000, 20), 14.9e-3, 0.1e-3);
    EXPECT_NEAR(dewPointOf(850, mixingRatio(850, -7.5)), -7.5, 1e-9);
    EXPECT_TRUE(std::isfinite(mixingRatio(1, 60))) << "more vapour than pressure";
    EXPECT_NEAR(dryAdiabat(20, 1000, 850), 6.7, 0.1);
}

TEST(SoundingIndices, AreThoseOfTheirLevels) {
    const std::vector<CheckedLevel> levels{{1000, 50.F, 24.F, 20.F, {}, {}},
                                           {850, 1500.F, 16.F, 12.F, {}, {}},
                                           {700, 3000.F, 4.F, -4.F, {}, {}},
                                           {500, 5700.F, -12.F, -30.F, {}, {}}};
    const SoundingIndices all = indicesOf(levels);
    EXPECT_EQ(all.k, 16 + 12 + 12 - 8);
    EXPECT_EQ(all.totalTotals, 16 + 12 + 24);
    EXPECT_NEAR(*all.showalter, -12 - liftedTemperature(850, 16, 12, 500), 1e-9);
    EXPECT_NEAR(*all.lifted, -12 - liftedTemperature(1000, 24, 20, 500), 1e-9);
    const auto humidity = [](double pressure, double dewPoint) {
        const double ratio = mixingRatio(pressure, dewPoint);
        return ratio / (1 + ratio);
    };
    const double q0 = humidity(1000, 20), q1 = humidity(850, 12), q2 = humidity(700, -4),
                 q3 = humidity(500, -30);
    EXPECT_NEAR(*all.precipitableWater, ((q0 + q1) * 75 + (q1 + q2) * 75 + (q2 + q3) * 100) * 100 / 9.80665,
                1e-9);

    auto gap = levels;
    gap[2].dewPoint.reset();
    EXPECT_FALSE(indicesOf(gap).k);
    EXPECT_TRUE(indicesOf(gap).totalTotals);
    gap[0].dewPoint.reset();
    EXPECT_FALSE(indicesOf(gap).lifted);
    EXPECT_FALSE(indicesOf(gap).precipitableWater) << "most of the vapour is near the ground";
    gap.pop_back();
    EXPECT_FALSE(indicesOf(gap).totalTotals);
    EXPECT_FALSE(indicesOf(gap).showalter);
    EXPECT_FALSE(indicesOf({}).k);
}

class SoundingTest : public ProgramTest {
protected:
    json jsonOf(const std::string& file) const { return json::parse(outOf({"sounding", "--json", file})); }
};

TEST_F(SoundingTest, IndicesOfRealSoundingsAreTheirOwn) {
    // Frozen from near the ground on, and behind other soundings in the file.
    const json all = jsonOf(sample("soundings/sounding_11101100.000"));
    ASSERT_EQ(all["soundings"].size(), 12);
    const json& yakutsk = all["soundings"][3];
    expectHolds(yakutsk, R"({"indices": {"k": 21, "totalTotals": 55},
                             "freezing": {"height": 362, "pressure": 950}})");
    const json& denver = all["soundings"][7];
    EXPECT_FALSE(denver["indices"].contains("k"));
    EXPECT_TRUE(denver["indices"].contains("lifted"));
    EXPECT_NEAR(denver["freezing"]["pressure"], 662, 1);

    const json march = jsonOf(sample("soundings/sounding_march.000"));
    expectHolds(march, R"({"title": "探空资料", "start": "2011-10-11 00:00"})");
    EXPECT_EQ(march["soundings"][0], yakutsk);
}

TEST_F(SoundingTest, OddSoundingsLoseNothingElse) {
    const std::vector<TestSounding> soundings{
        {1, 40, {{500, 5700, -12, -30, 270, 20}, {1000, 50, 24, 20, 90, 3}, {-3, 0, 0, 0, 0, 0}}},
        {2,
         40,
         {{1000, 50, 24, 9999, 9999, 9999}, {800, 9999, 9999, -3, 380, -1}, {500, 5700, -12, -30, 0, 0}}},
        {3, 40, {}},
        {4, 40, {{950, 400, -5, -6, 360, 5}, {500, 5200, -40, -50, 1, 1}}}};
    const std::string text = soundingFile(soundings, "95 2 28 12");
    EXPECT_EQ(run({"sounding", "--json", write("f", text)}).err, "");
    const json all = jsonOf(path("f"));
    EXPECT_EQ(all["start"], "1995-02-28 12:00");
    const json& turned = all["soundings"][0]["levels"];
    ASSERT_EQ(turned.size(), 2);
    EXPECT_EQ(turned[0]["pressure"], 1000);
    EXPECT_EQ(turned[1]["windSpeed"], 20);
    EXPECT_FALSE(all["soundings"][0].contains("freezing")) << "the library took its top for its ground";
    EXPECT_EQ(all["soundings"][1]["levels"][0]["dewPoint"], nullptr);
    EXPECT_EQ(all["soundings"][1]["levels"][1],
              json::parse(R"({"pressure":800,"height":null,"temperature":null,"dewPoint":-3.0,
                              "windDirection":null,"windSpeed":null})"));
    EXPECT_FALSE(all["soundings"][1].contains("freezing"));
    EXPECT_EQ(all["soundings"][2]["levels"], json::array());
    EXPECT_EQ(all["soundings"][3]["freezing"]["pressure"], 950) << "the ground is frozen";

    const Answer cut = run({"sounding", write("cut", text.substr(0, text.find("3 100 40")))});
    EXPECT_THAT(cut.err, HasSubstr("promises 4 soundings, but only 2 can be read"));
    EXPECT_THAT(cut.out, HasSubstr("     800       -            -         -3          -      -\n"));
}

TEST_F(SoundingTest, AnswersInSeveralFormats) {
    const std::string a = write("a", soundingFile({{7, 40, {{850, 1500, 10, 9999, 350, 12}}}}));
    const std::string b = write("b", soundingFile({{8, -40, {{700, 3000, 1, 0, 10, 2}}}}));
    const std::string heading =
        "time,station,longitude,latitude,pressure,height,temperature,dewPoint,windDirection,windSpeed\n";
    EXPECT_EQ(outOf({"sounding", a, b, "--format", "csv"}),
              heading + "2024-02-28 12:00,7,100,40,850,1500,10,,350,12\n" +
                  "2024-02-28 12:00,8,100,-40,700,3000,1,0,10,2\n");
    const Answer both = run({"sounding", a, path("none"), "--json"});
    EXPECT_EQ(both.exitCode, 1);
    EXPECT_EQ(json::parse(both.out).size(), 1) << "several files make an array";
    outOf({"sounding", b, "-o", path("b.json")});
    EXPECT_EQ(json::parse(readFile(path("b.json")))["soundings"][0]["station"], 8);
    EXPECT_THAT(outOf({"sounding", b}), HasSubstr("station 8   40°S 100°E   50 m\n"));
    const std::string cut = write("short", "diamond 5 T 2024 1 1");
    expectReplies({"sounding"},
                  {{{a, "--station", "8"}, 1, "it has no sounding of station 8, but of: 7"},
                   {{write("grid", GridText{}.text())}, 1, "something else than soundings (type 5)"},
                   {{cut}, 1, "its header cannot be read: year, month, day, hour"}});
}

/// A wind at the middle of a sheet of 200 x 200.
Picture barb(double from, double speed, bool southern) {
    BareMap map({0, 1, 0, 1}, 200, 200);
    setColour(map.page.ink, black);
    drawWindBarb(map.page.ink, {100, 100}, from, speed, southern, 60);
    return std::move(map.picture);
}

bool isInk(const Pixel& p) { return p[0] < 128; }

int inkIn(const Picture& picture, int left, int right, int top, int bottom) {
    return picture.countIn(left, right, top, bottom, isInk);
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

class SoundingChartTest : public PictureTest {
protected:
    /// The chart of a sounding of one temperature and dew point.
    Picture isothermal(int temperature, double latitude = 40) const {
        const auto at = [&](int pressure) {
            return TestLevel{pressure, 0, temperature, temperature - 20, 270, 15};
        };
        const std::string file = write("f", soundingFile({{1, latitude, {at(1000), at(500), at(150)}}}));
        return drawn({"chart", file});
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
    const Picture first = drawn({"chart", file}, {}, "this is station 7, the first of 3 soundings");
    EXPECT_EQ(run({"chart", file, "-o", path("c.png"), "--station", "8"}).err, "");
    EXPECT_GT(first.differences(Picture(path("c.png"))), 100);
    outOf({"chart", file, "--out-dir", path("charts"), "--size", "600x400"});
    EXPECT_THAT(filesIn("charts"), ElementsAre("f.000_7.png", "f.000_7_2.png", "f.000_8.png"));
    EXPECT_EQ(Picture(path("charts/f.000_8.png")).width(), 600);
    // Names that come to light only while a file is read are kept apart as others are.
    const std::string other = write("f.000_7", soundingFile({{2, 40, {low}}}));
    const std::string map = write("charts/f.000_8.png", readFile(sample("lines/iceland.777")));
    expectReplies({"chart", "--out-dir", path("charts"), file},
                  {{{other}, 1, "f.000_7.png is already that of " + other},
                   {{"--map", map}, 1, "f.000_8.png would overwrite the input " + map}});

    const Arguments pdf{"chart", file, "-o", "-", "--format", "pdf"};
    EXPECT_THAT(outOf(pdf), HasSubstr("/Count 3"));
    EXPECT_THAT(outOf(pdf, {"--station", "8"}), HasSubstr("/Count 1"));
    outOf({"chart", file, "-o", path("one.svg"), "--fill"});

    expectReplies({"chart", "-o", path("no.png")},
                  {{{file, "--station", "9"}, 1, "but of: 7, 8, 7"},
                   {{write("none", soundingFile({}))}, 1, "it has no sounding that can be read"}});
    EXPECT_FALSE(std::filesystem::exists(path("no.png")));
}

}  // namespace
