#include <gmock/gmock.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "program.h"
#include "soundingIndices.h"
#include "soundingTexts.h"
#include "thermodynamics.h"

namespace {

using namespace velmar::tool;
using nlohmann::json;
using testing::HasSubstr;

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
    const std::vector<SoundingLevel> levels{{1000, 50.F, 24.F, 20.F, {}, {}},
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
    json jsonOf(const std::string& file) const { return json::parse(run({"sounding", "--json", file}).out); }
};

TEST_F(SoundingTest, IndicesOfRealSoundingsAreTheirOwn) {
    // Frozen from near the ground on, and behind other soundings in the file.
    const json all = jsonOf(sample("soundings/sounding_11101100.000"));
    ASSERT_EQ(all["soundings"].size(), 12);
    const json& yakutsk = all["soundings"][3];
    EXPECT_EQ(yakutsk["indices"]["k"], 21);
    EXPECT_EQ(yakutsk["indices"]["totalTotals"], 55);
    EXPECT_EQ(yakutsk["freezing"], json::parse(R"({"height":362.0,"pressure":950.0})"));
    const json& denver = all["soundings"][7];
    EXPECT_FALSE(denver["indices"].contains("k"));
    EXPECT_TRUE(denver["indices"].contains("lifted"));
    EXPECT_NEAR(denver["freezing"]["pressure"], 662, 1);

    const json march = jsonOf(sample("soundings/sounding_march.000"));
    EXPECT_EQ(march["title"], "探空资料");
    EXPECT_EQ(march["start"], "2011-10-11 00:00");
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
    const Answer whole = run({"sounding", "--json", write("f", text)});
    EXPECT_EQ(whole.err, "");
    const json all = json::parse(whole.out);
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
    EXPECT_EQ(cut.exitCode, 0);
    EXPECT_THAT(cut.err, HasSubstr("promises 4 soundings, but only 2 can be read"));
    EXPECT_THAT(cut.out, HasSubstr("     800       -            -         -3          -      -\n"));
}

TEST_F(SoundingTest, AnswersInSeveralFormats) {
    const std::string a = write("a", soundingFile({{7, 40, {{850, 1500, 10, 9999, 350, 12}}}}));
    const std::string b = write("b", soundingFile({{8, -40, {{700, 3000, 1, 0, 10, 2}}}}));
    const std::string heading =
        "time,station,longitude,latitude,pressure,height,temperature,dewPoint,windDirection,windSpeed\n";
    EXPECT_EQ(run({"sounding", a, b, "--format", "csv"}).out,
              heading + "2024-02-28 12:00,7,100,40,850,1500,10,,350,12\n" +
                  "2024-02-28 12:00,8,100,-40,700,3000,1,0,10,2\n");
    const Answer both = run({"sounding", a, path("none"), "--json"});
    EXPECT_EQ(both.exitCode, 1);
    EXPECT_EQ(json::parse(both.out).size(), 1) << "several files make an array";
    EXPECT_EQ(run({"sounding", b, "-o", path("b.json")}).exitCode, 0);
    EXPECT_EQ(json::parse(readFile(path("b.json")))["soundings"][0]["station"], 8);
    EXPECT_THAT(run({"sounding", b}).out, HasSubstr("station 8   40°S 100°E   50 m\n"));

    const Answer other = run({"sounding", a, "--station", "8"});
    EXPECT_EQ(other.exitCode, 1);
    EXPECT_THAT(other.err, HasSubstr("it has no sounding of station 8, but of: 7"));
    EXPECT_THAT(run({"sounding", write("grid", GridText{}.text())}).err,
                HasSubstr("it holds something else than soundings (type 5)"));
    EXPECT_THAT(run({"sounding", write("short", "diamond 5 T 2024 1 1")}).err,
                HasSubstr("its header cannot be read: year, month, day, hour"));
}

}  // namespace
