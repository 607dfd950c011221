#include "compute/streamlines.h"

#include <algorithm>
#include <cmath>

#include "program.h"
#include "windText.h"

namespace {

using namespace velmar::tool;

class StreamlinesTest : public ProgramTest {
protected:
    StreamlineSet traced(const WindText& wind, const std::vector<float>& levels) const {
        const std::string file = write("w", wind.text());
        return traceStreamlines(readWindFile(readFileHead(file)), 5, levels);
    }

    json features(const std::string& file, const Arguments& options = {}) const {
        return json::parse(outOf({"streamlines", file, "-o", "-"}, options))["features"];
    }
};

TEST_F(StreamlinesTest, LinesAndArrowsRunWithTheFlow) {
    // A cyclone: counter-clockwise about its centre.
    WindText wind;
    wind.u = [](double, double y) { return -(y - 25); };
    wind.v = [](double x, double) { return x - 105; };
    const auto turnsLeft = [](velmar::base::LonLat from, velmar::base::LonLat to) {
        return (from.longitude - 105) * (to.latitude - 25) - (from.latitude - 25) * (to.longitude - 105) > 0;
    };
    const StreamlineSet set = traced(wind, {0});
    ASSERT_GT(set.lineCount(), 20U);
    std::size_t turnedRound = 0;
    for (std::size_t k = 0; k < set.lineCount(); ++k) {
        const auto line = set.line(k);
        ASSERT_GE(line.size(), 2U);
        for (std::size_t p = 1; p < line.size(); ++p)
            ASSERT_TRUE(turnsLeft(line[p - 1].end, line[p].end)) << "line " << k << ", piece " << p;
        // Lines are begun in the lower left corners of cells, 18 to a degree.
        const float cells = 18 * (line.front().end.longitude - 100);
        turnedRound += std::fabs(cells - std::round(cells)) > 0.01F ? 1 : 0;
    }
    EXPECT_GT(turnedRound, 20U) << "most lines have a part against the flow";
    ASSERT_GT(set.arrows.size(), 20U);
    for (const auto& arrow : set.arrows) EXPECT_TRUE(turnsLeft(arrow.tail, arrow.head));
}

TEST_F(StreamlinesTest, EveryPieceHasTheBandOfTheSpeedAtOneOfItsEnds) {
    // Speed changes by more than two bands from piece to piece, whether lines are begun upstream or downstream.
    std::vector<float> levels(100);
    for (std::size_t k = 0; k < levels.size(); ++k) levels[k] = 0.02F * static_cast<float>(k);
    for (const double sign : {1.0, -1.0}) {
        WindText wind;
        wind.nx = 3;
        wind.ny = 3;
        wind.u = [=](double x, double) { return sign * (0.2 + 0.9 * (x - 100)); };
        const auto bandAt = [](velmar::base::LonLat point) {
            return (0.2F + 0.9F * (point.longitude - 100)) / 0.02F;
        };
        const StreamlineSet set = traced(wind, levels);
        ASSERT_GT(set.pieces.size(), 100U);
        for (std::size_t k = 0; k < set.lineCount(); ++k) {
            const auto line = set.line(k);
            for (std::size_t p = 1; p < line.size(); ++p) {
                const float middle = static_cast<float>(line[p].band) + 0.5F;
                const float distance = std::min(std::fabs(bandAt(line[p - 1].end) - middle),
                                                std::fabs(bandAt(line[p].end) - middle));
                ASSERT_LT(distance, 0.51F) << "piece " << p << " of " << line.size();
            }
        }
    }
}

TEST_F(StreamlinesTest, LinesReachTheSeamAndStayOnTheGrid) {
    WindText wind;
    wind.circling();
    wind.v = [](double x, double) { return 5 * std::sin(x / 20); };
    const json globe = features(write("globe", wind.text()));
    double west = 400;
    double east = -400;
    for (const json& feature : globe) {
        const json& geometry = feature["geometry"];
        const bool isPoint = geometry["type"] == "Point";
        for (const json& point : isPoint ? json::array({geometry["coordinates"]}) : geometry["coordinates"]) {
            west = std::min(west, point[0].get<double>());
            east = std::max(east, point[0].get<double>());
            ASSERT_LE(std::fabs(point[1].get<double>()), 80);
        }
    }
    EXPECT_EQ(west, 0);
    EXPECT_EQ(east, 360);
}

TEST_F(StreamlinesTest, FeaturesTellSpeedAndHeading) {
    WindText wind;
    wind.u = [](double x, double) { return -(x - 99); };
    wind.v = wind.u;
    const std::string file = write("w", wind.text());
    std::size_t whole = 0;
    for (const json& feature : features(file)) {
        const json& properties = feature["properties"];
        if (properties["kind"] == "arrow")
            EXPECT_NEAR(properties["heading"], 225, 0.1);
        else
            ++whole;
    }
    std::size_t stretches = 0;
    for (const json& feature : features(file, {"--split", "--levels", "4,8", "--density", "5"})) {
        const json& properties = feature["properties"];
        if (properties["kind"] != "streamline") continue;
        ++stretches;
        const double from = properties["speedFrom"];
        EXPECT_TRUE(from == 0 || from == 4 || from == 8);
        const double to = properties["speedTo"].is_null() ? 100 : properties["speedTo"].get<double>();
        EXPECT_EQ(properties["speedTo"].is_null(), from == 8);
        for (const json& point : feature["geometry"]["coordinates"]) {
            const double speed = std::sqrt(2.0) * (point[0].get<double>() - 99);
            EXPECT_GT(speed, from - 0.1);
            EXPECT_LT(speed, to + 0.1);
        }
    }
    EXPECT_GT(stretches, whole + 10);
}

TEST_F(StreamlinesTest, SaysWhatCannotBeDrawn) {
    const std::string calm = write("calm", WindText{.u = [](double, double) { return 0; }}.text());
    EXPECT_TRUE(features(calm).empty());
    const std::string good = write("good", WindText{}.text());
    std::string list = "1";
    for (int k = 2; k <= 100; ++k) list += fmt::format(",{}", k);
    expectReplies({"streamlines", "-o", "-"},
                  {{{calm}, 0, "there are no streamlines: the wind is missing or calm everywhere"}});
    expectReplies({"streamlines", "-o", path("no.geojson")},
                  {{{good, "--density", "15"}, 2, "not in range"},
                   {{good, "--levels", list}, 1, "there are 101 bands of speed, more than 100"},
                   {{write("grid", GridText{}.text())}, 1, "it holds something else than a wind grid"}});
    EXPECT_FALSE(std::filesystem::exists(path("no.geojson")));
}

}  // namespace
