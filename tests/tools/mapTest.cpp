#include <limits>

#include "chart/layers/mapLayer.h"
#include "chart/layers/regionLayer.h"
#include "picture.h"

namespace {

using namespace velmar::tool;

constexpr MapInks inks{{1, 0, 0}, {0, 0, 1}};

bool isCoast(const Pixel& p) { return p[0] > p[2] + 100; }
bool isBorderInk(const Pixel& p) { return p[2] > p[0] + 100; }

LineMap mapOf(const std::vector<std::vector<float>>& lines, const std::string& name = {}) {
    LineMap map{};
    for (const auto& line : lines) {
        map.lines.push_back({map.coordinates.size() / 2, line.size() / 2, 0, 0, name});
        map.coordinates.insert(map.coordinates.end(), line.begin(), line.end());
    }
    return map;
}

BareMap draw(const LineMap& lines, const GeoBox& bounds) {
    BareMap map(bounds, 600, 300);
    map.draw(MapLayer(lines, inks));
    return map;
}

TEST(MapLayer, LinesRunThroughTheSeamAtAnyBounds) {
    // The same line across the date line and across Greenwich, in either kind of longitude.
    const std::vector<float> dateLine{170, 10, 179, 10, -179, 10, -170, 10};
    const std::vector<float> dateLineEast{170, 10, 179, 10, 181, 10, 190, 10};
    const std::vector<float> greenwich{350, 10, 359, 10, 1, 10, 10, 10};
    for (const auto& [line, middle] : {std::pair{dateLine, 180.0}, {dateLineEast, 180.0}, {greenwich, 0.0}}) {
        for (const int circles : {-1, 0, 1}) {
            const double west = middle + 360 * circles - 20;
            const BareMap map = draw(mapOf({line}), {west, west + 40, 0, 20});
            for (int k = 11; k < 30; ++k) EXPECT_TRUE(isCoast(map.at(west + k, 10))) << middle << ' ' << k;
            EXPECT_FALSE(isCoast(map.at(west + 8, 10)) || isCoast(map.at(west + 32, 10)));
        }
        // At both edges of a map of the globe, and nowhere between.
        const BareMap globe = draw(mapOf({line}), {middle, middle + 360, -90, 90});
        EXPECT_TRUE(isCoast(globe.at(middle + 5, 10)) && isCoast(globe.at(middle + 355, 10)));
        for (int k = 15; k < 345; ++k) EXPECT_FALSE(isCoast(globe.at(middle + k, 10))) << k;
    }
}

TEST(MapLayer, CutsAlongTheDateLineAreNoCoast) {
    const LineMap land =
        mapOf({{170, 60, 180, 62, 180, 68, 170, 70}, {-170, 61, -180, 62, -180, 68, -170, 69}});
    const BareMap map = draw(land, {160, 200, 50, 80});
    EXPECT_TRUE(isCoast(map.at(179.8, 62)) && isCoast(map.at(180.2, 62)));
    EXPECT_FALSE(isCoast(map.at(180, 65)));
}

TEST(MapLayer, BordersLieUnderCoasts) {
    LineMap lines = mapOf({{0, 10, 40, 10}, {20, 0, 20, 20}});
    lines.lines[1].attribute1 = 2;
    const BareMap map = draw(lines, {0, 40, 0, 20});
    EXPECT_TRUE(isBorderInk(map.at(20, 5)));
    EXPECT_GT(map.at(20, 10)[0], map.at(20, 10)[2] + 50);
}

TEST(MapLayer, DrawsWhatItCanOfStrangeLines) {
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    const LineMap lines = mapOf({{},
                                 {5, 5},
                                 {0, 10, nan, 10, 1e30F, 10, 10, 1e9F, 40, 10},
                                 {-700, 15, 700, 15},
                                 {nan, nan, nan, nan}});
    EXPECT_TRUE(isCoast(draw(lines, {0, 40, 0, 20}).at(20, 10)));
    // A chart may be so small that the ends of its lines are millions of pixels away.
    const BareMap close = draw(mapOf({{-150, 10, 20, 10.05F}}), {19.9, 20, 10, 10.1});
    EXPECT_TRUE(isCoast(close.at(19.95, 10.05)));
}

TEST(RegionNames, StandOnceAndWhereTheyFit) {
    LineMap map = mapOf(
        {{1, 1, 3, 1, 3, 19, 1, 19}, {5, 1, 38, 1, 38, 19, 5, 19}, {39, 1, 39.5F, 1, 39.5F, 19}}, "Land");
    map.lines[2].name = "Sliver";
    RegionNameLayer names(map);
    BareMap paper({0, 40, 0, 20}, 600, 300);
    paper.draw(names);
    EXPECT_EQ(names.remark(), "1 of 2 names");
    const auto dark = [](const Pixel& p) { return p[0] < 100; };
    EXPECT_GT(paper.picture.count(dark), 20);
    EXPECT_EQ(paper.picture.countIn(0, 75, 0, 300, dark), 0) << "it stands in the larger one";
}

TEST(Regions, AroundAPoleAreFilled) {
    std::vector<float> coast;
    for (int k = 0; k < 36; ++k)
        coast.insert(coast.end(), {static_cast<float>(10 * k), -65.0F - static_cast<float>(k % 2)});
    coast.insert(coast.end(), {0, -65});
    const LineMap map = mapOf({coast}, "South");
    BareMap paper({-90, 270, -90, 90}, 720, 360);
    paper.draw(RegionLayer(map));
    for (int k = -85; k < 270; k += 10) {
        EXPECT_NE(paper.at(k, -80), pixelOf(white)) << k;
        EXPECT_EQ(paper.at(k, -50), pixelOf(white)) << k;
    }
}

class MapChartTest : public PictureTest {
protected:
    Picture draw(const Arguments& arguments, const std::string& sentence = {}) const {
        return drawn({"chart", "--size", "700x500"}, arguments, sentence);
    }
};

TEST_F(MapChartTest, ChartsOfAllKindsCanHaveMaps) {
    const std::string world = sample("lines/map_world.009");
    for (const char* name :
         {"grids/h500_global.000", "winds/wind500_global.000", "images/cloud_total_global.img",
          "stations/upper500_cities.000", "lines/iceland.777", "regions/africa_gbk.dat"}) {
        const Picture plain = draw({sample(name)});
        EXPECT_GT(draw({sample(name), "--map", world}).differences(plain), 100) << name;
    }
    const std::string height = sample("grids/h500_global.000");
    EXPECT_GT(draw({height, "--map", world, "--map", sample("regions/us_states.dat")})
                  .differences(draw({height, "--map", world})),
              100);
    // One that is cut short is drawn as far as it goes, and the user is told.
    const std::string cut = write("cut", readFile(world).substr(0, 20000));
    draw({cut, "--density", "3"}, "breaks off");
    draw({sample("lines/iceland.777"), "--map", cut}, "breaks off");
    draw({cut, "--fill", "--wind=1,2"}, "has no bands to be filled, stations");
}

TEST_F(MapChartTest, RefusesMapsInWords) {
    expectReplies({"chart", sample("lines/iceland.777"), "-o", path("no.png"), "--map"},
                  {{{path("nothing")}, 2, "there is no such file"},
                   {{sample("grids/h500_global.000")}, 2, "no lines of a map"}});
    EXPECT_FALSE(std::filesystem::exists(path("no.png")));
}

class RegionTest : public ProgramTest {};

TEST_F(RegionTest, NamesTheRegionsOfPlaces) {
    const std::string states = sample("regions/us_states.dat");
    EXPECT_EQ(outOf({"region", states, "--at=-104.99,39.74", "--at", "255.01,39.74", "--at", "0,0"}),
              "Colorado\nColorado\n(no region)\n");
    expectHolds(
        json::parse(outOf({"region", sample("regions/africa_gbk.dat"), "--at", "28.3,-29.5", "--json"}))[0],
        R"({"region": "莱索托", "latitude": -29.5})");
}

TEST_F(RegionTest, ListsWhatThereIs) {
    const std::string file = write("r", "diamond 10 x\n1 2 A 3 0 0 5 5 0 5\n3 4 \xC4\xCF 0\n5 6 C 2 1 1");
    const Answer answer = run({"region", file, "--list"});
    EXPECT_EQ(answer.out, "A  3 points, 0 to 5, 0 to 5\n南  0 points, nowhere\nC  1 points, nowhere\n");
    EXPECT_THAT(answer.err, HasSubstr("the file breaks off in region 3"));
    EXPECT_EQ(json::parse(outOf({"region", file, "--json"}))[0]["bounds"], json({0, 5, 0, 5}));
}

TEST_F(RegionTest, SaysInWordsWhatIsWrong) {
    const std::string states = sample("regions/us_states.dat");
    expectReplies({"region"}, {{{sample("grids/h500_global.000"), "--list"}, 1, "it holds no regions"},
                               {{write("e", "diamond 10 x\n"), "--list"}, 1, "no region of it can be read"},
                               {{states, "--at", "5"}, 2, "a longitude and a latitude are expected"},
                               {{states, "--at", "5,6", "--list"}, 2, "excludes"}});
}

}  // namespace
