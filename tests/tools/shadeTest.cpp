#include <algorithm>

#include "../support/files.h"
#include "byteImages.h"
#include "compute/shading.h"
#include "program.h"

namespace {

using velmar::tool::Shading;

class ShadeTest : public ProgramTest {
protected:
    json polygons(const std::string& file, const Arguments& options) const {
        return json::parse(outOf({"shade", file, "-o", "-"}, options))["features"];
    }

    /// Compares features with a block of the library.
    static void expectSame(const json& features, const float* block) {
        ASSERT_NE(block, nullptr);
        ASSERT_EQ(features.size(), static_cast<std::size_t>(block[1]));
        const float* next = block + 2;
        int order = 0;
        for (const json& feature : features) {
            const auto points = static_cast<std::size_t>(next[0]);
            EXPECT_EQ(feature["properties"]["level"].get<float>(), next[1]);
            EXPECT_EQ(feature["properties"]["colour"], next[2]);
            EXPECT_EQ(feature["properties"]["order"], order++);
            const json& ring = feature["geometry"]["coordinates"][0];
            std::vector<float> coordinates;
            double twiceArea = 0;
            for (std::size_t k = 0; k < ring.size(); ++k) {
                coordinates.insert(coordinates.end(), {ring[k][0], ring[k][1]});
                if (k > 0) twiceArea += cross(ring[k - 1], ring[k], ring[0]);
            }
            EXPECT_GE(twiceArea, 0);
            std::vector<float> expected(next + 3, next + 3 + 2 * points);
            if (coordinates != expected) {  // turned round
                std::ranges::reverse(expected);
                for (std::size_t k = 0; k < expected.size(); k += 2) std::swap(expected[k], expected[k + 1]);
            }
            EXPECT_EQ(coordinates, expected);
            EXPECT_EQ(ring.front(), ring.back());
            next += 3 + 2 * points;
        }
        EXPECT_EQ(*next, -1);
    }

    static double cross(const json& a, const json& b, const json& origin) {
        const auto d = [&](const json& p, std::size_t c) {
            return p[c].get<double>() - origin[c].get<double>();
        };
        return d(a, 0) * d(b, 1) - d(b, 0) * d(a, 1);
    }
};

TEST_F(ShadeTest, WritesThePolygonsOfTheLibrary) {
    const std::string file = sample("grids/soilt_global_missing.000");
    const velmar::test::Block contours(readCntrData(file.c_str(), 2, 0, std::array{0.0F}.data()));
    ASSERT_EQ(contours[3], 145) << "the grid is closed around the globe";
    const std::array levels{-20.0F, 0.0F, 12.5F, 30.0F};
    const std::array colours{0, 1, 2, 3};
    for (const int stripRows : {1, 5, 0}) {
        const velmar::test::Block expected(velmarCntrShad(contours.get() + 11, 145, 73, levels.data(),
                                                          colours.data(), 4, 9999, 0, 90, 2.5F, -2.5F,
                                                          stripRows));
        expectSame(polygons(file, {"--levels=30,-20,12.5,0", "--strip-rows", std::to_string(stripRows)}),
                   expected.get());
    }
}

TEST_F(ShadeTest, ShadesByteImages) {
    const std::string file = write("image", ByteImageText{}.text());
    expectSame(polygons(file, {"--strip-rows", "1"}),
               velmar::test::Block(readByteShadData(file.c_str(), 1, 0, 0)).get());
    const json single = polygons(file, {"--levels", "33.5", "--strip-rows", "0"});
    expectSame(single, velmar::test::Block(readByteShadData(file.c_str(), 0, 1, 33.5F)).get());
    EXPECT_EQ(single[0]["properties"]["level"], 33.5);
    const auto strips = [&](const char* option, const char* value) {
        return polygons(file, {option, value, "--strip-rows", "1"});
    };
    const json tens = strips("--interval", "50");
    EXPECT_EQ(tens, strips("--levels", "0,50,100"));
    EXPECT_EQ(tens, strips("--auto", "3"));
}

TEST_F(ShadeTest, ClosesPicturesRoundTheGlobeAndLeavesOutWhatTheyDoNotShow) {
    ByteImageText image{.nx = 36, .dx = 10, .west = 0};
    image.value = [](int column, int) { return column == 9 ? 255 : 100; };
    const auto ends = [](const json& polygon) {
        std::vector<double> longitudes;
        for (const json& point : polygon["geometry"]["coordinates"][0]) longitudes.push_back(point[0]);
        const auto [west, east] = std::ranges::minmax(longitudes);
        return std::pair(west, east);
    };
    const json parts = polygons(write("image", image.text()), {"--levels=50", "--strip-rows=0"});
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(ends(parts[0]), std::pair(0.0, 80.0));
    EXPECT_EQ(ends(parts[1]), std::pair(100.0, 360.0));
}

TEST_F(ShadeTest, TellsNothingToPaintFromFailure) {
    const std::string low = write("low", GridText{}.text());
    // Above the level, but no cell has data at all its corners.
    const auto chequered = [](double x, double y) { return std::fmod(x + y, 2) == 0 ? 9999 : 600; };
    // An outline with more corners than the library has room for.
    const GridText flat{.ny = 2, .value = [](double, double) { return 600; }};
    expectReplies(
        {"shade", "--levels", "500", "--strip-rows", "1", "-o", "-"},
        {{{low}, 0, "there is nothing to paint"},
         {{write("chequered", GridText{.value = chequered}.text())}, 0, "there is nothing to paint"},
         {{write("flat", flat.text())}, 1, "the library gave up shading it"}});
    EXPECT_EQ(polygons(low, {"--levels", "500", "--strip-rows", "1"}), json::array());
    expectReplies(
        {"shade", "--levels", "500", "-o", "-"},
        {{{write("chequered", GridText{.value = chequered}.text())}, 0, "there is nothing to paint"}});
}

/// Twice the area inside a ring of GeoJSON.
double twiceArea(const json& ring) {
    double sum = 0;
    for (std::size_t k = 1; k < ring.size(); ++k)
        sum += ring[k - 1][0].get<double>() * ring[k][1].get<double>() -
               ring[k][0].get<double>() * ring[k - 1][1].get<double>();
    return sum;
}

TEST_F(ShadeTest, WritesBandsThatDivideTheAreaWithData) {
    const std::string file = sample("grids/soilt_global_missing.000");
    const json bands = polygons(file, {"--levels=30,-20,12.5,0"});
    ASSERT_EQ(bands.size(), 5U);
    double sum = 0;
    std::size_t holes = 0;
    for (std::size_t k = 0; k < bands.size(); ++k) {
        EXPECT_EQ(bands[k]["geometry"]["type"], "MultiPolygon");
        EXPECT_EQ(bands[k]["properties"]["lower"], k == 0 ? json() : bands[k - 1]["properties"]["upper"]);
        for (const json& polygon : bands[k]["geometry"]["coordinates"]) {
            for (std::size_t ring = 0; ring < polygon.size(); ++ring) {
                EXPECT_EQ(polygon[ring].front(), polygon[ring].back());
                EXPECT_EQ(twiceArea(polygon[ring]) > 0, ring == 0);
                sum += twiceArea(polygon[ring]) / 2;
            }
            holes += polygon.size() - 1;
        }
    }
    EXPECT_EQ(bands[4]["properties"]["upper"], json());
    EXPECT_GT(holes, 0U);
    // All that has data lies above a level below it.
    const json whole = polygons(file, {"--levels", "-300"});
    double area = 0;
    for (const json& polygon : whole[0]["geometry"]["coordinates"])
        for (const json& ring : polygon) area += twiceArea(ring) / 2;
    EXPECT_NEAR(sum, area, 1e-2);
}

}  // namespace
