#include <cmath>

#include "picture.h"

namespace {

class TrianglesTest : public PictureTest {
protected:
    /// Four stations on both sides of the date line, their values rising to the east.
    std::string stations() const {
        return write("s",
                     "diamond 3 T 2024 1 1 0 0 0 0 0 0 1 4 "
                     "1 178 10 0 0  2 -178 10 0 40  3 178 15 0 0  4 -178 15 0 40");
    }
};

TEST_F(TrianglesTest, WritesLinesAndTriangles) {
    const json features = json::parse(
        outOf({"triangles", stations(), "-o", "-", "--format", "geojson", "--levels", "10"}))["features"];
    ASSERT_EQ(features.size(), 3U);
    EXPECT_EQ(features[0]["properties"], json({{"kind", "line"}, {"value", 10}}));
    for (const json& point : features[0]["geometry"]["coordinates"])
        EXPECT_NEAR(std::remainder(point[0].get<double>() - 179, 360), 0, 1e-4);
    for (std::size_t k : {1U, 2U}) {
        EXPECT_EQ(features[k]["properties"]["kind"], "triangle");
        EXPECT_EQ(features[k]["geometry"]["coordinates"][0].size(), 4U);
    }
}

TEST_F(TrianglesTest, DrawsCharts) {
    const auto chart = [&](const Arguments& options) {
        return outOf({"triangles", stations(), "-o", "-", "--format", "svg"}, options);
    };
    const std::string network = chart({"--network"});
    EXPECT_GT(network.size(), chart({"--no-network"}).size());
    EXPECT_EQ(network, chart({}));
    drawn({"triangles", sample("stations/summer_rain.000")});
}

TEST_F(TrianglesTest, SaysInWordsWhatIsWrong) {
    const std::string row = write("r", "diamond 3 T 2024 1 1 0 0 0 0 0 0 1 3 1 1 1 0 0 2 2 1 0 5 3 3 1 0 9");
    expectReplies({"triangles", "-o", path("x.png")},
                  {{{row}, 1, "its stations make no triangle"},
                   {{stations(), "--interval", "0.5"}, 1, "49 at most"},
                   {{sample("grids/h500_global.000")}, 1, "grid of one quantity"}});
}

class DistanceTest : public ProgramTest {};

TEST_F(DistanceTest, TellsTheWay) {
    EXPECT_EQ(outOf({"distance", "0,0", "1,0"}), "111.2 km, bearing 90.0°, angle 1.000°\n");
    const json way = json::parse(outOf({"distance", "--json", "-74,40.7", "0.1,51.5"}));
    EXPECT_NEAR(way["kilometres"].get<double>(), 5586, 1);
    EXPECT_NEAR(way["bearing"].get<double>(), 51.2, 0.1);
    expectReplies({"distance"}, {{{"5,5", "5,99"}, 2, "latitudes lie between -90 and 90"},
                                 {{"5", "5,9"}, 2, "a longitude and a latitude are expected"}});
    EXPECT_THAT(outOf({"distance", "30,2.85", "-150,-2.85"}), Not(HasSubstr("nan")));
}

}  // namespace
