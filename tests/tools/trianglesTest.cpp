#include <gmock/gmock.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "program.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

class TrianglesTest : public ProgramTest {
protected:
    /// Four stations on both sides of the date line, their values rising to the east.
    std::string stations() const {
        return write("s",
                     "diamond 3 T 2024 1 1 0 0 0 0 0 0 1 4 "
                     "1 178 10 0 0  2 -178 10 0 40  3 178 15 0 0  4 -178 15 0 40");
    }
};

TEST_F(TrianglesTest, WritesLinesAndTriangles) {
    ASSERT_EQ(run({"triangles", stations(), "-o", path("t.geojson"), "--levels", "10"}).exitCode, 0);
    const json features = json::parse(readFile(path("t.geojson")))["features"];
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
    for (const char* flag : {"--network", "--no-network"})
        EXPECT_EQ(run({"triangles", stations(), "-o", path("t.svg"), flag}).exitCode, 0);
    const std::string plain = readFile(path("t.svg"));
    run({"triangles", stations(), "-o", path("n.svg")});
    EXPECT_GT(readFile(path("n.svg")).size(), plain.size());
    EXPECT_EQ(run({"triangles", sample("stations/summer_rain.000"), "-o", path("r.png")}).exitCode, 0);
    EXPECT_THAT(readFile(path("r.png")), StartsWith("\x89PNG"));
}

TEST_F(TrianglesTest, SaysInWordsWhatIsWrong) {
    const std::string row = write("r", "diamond 3 T 2024 1 1 0 0 0 0 0 0 1 3 1 1 1 0 0 2 2 1 0 5 3 3 1 0 9");
    EXPECT_THAT(run({"triangles", row, "-o", path("x.png")}).err, HasSubstr("its stations make no triangle"));
    EXPECT_THAT(run({"triangles", stations(), "-o", path("x.png"), "--interval", "0.5"}).err,
                HasSubstr("49 at most"));
    EXPECT_EQ(run({"triangles", sample("grids/h500_global.000"), "-o", path("x.png")}).exitCode, 1);
}

class DistanceTest : public ProgramTest {};

TEST_F(DistanceTest, TellsTheWay) {
    EXPECT_EQ(run({"distance", "0,0", "1,0"}).out, "111.2 km, bearing 90.0°, angle 1.000°\n");
    const json way = json::parse(run({"distance", "--json", "-74,40.7", "0.1,51.5"}).out);
    EXPECT_NEAR(way["kilometres"].get<double>(), 5586, 1);
    EXPECT_NEAR(way["bearing"].get<double>(), 51.2, 0.1);
    EXPECT_EQ(run({"distance", "5,5", "5,99"}).exitCode, 2);
    EXPECT_EQ(run({"distance", "5", "5,9"}).exitCode, 2);
    EXPECT_EQ(run({"distance", "30,2.85", "-150,-2.85"}).out.find("nan"), std::string::npos);
}

}  // namespace
