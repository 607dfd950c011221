#include "chart/chartTexts.h"
#include "chart/flowField.h"
#include "chart/layers/coverageLayer.h"
#include "chart/layers/streamlineLayer.h"
#include "chart/paper/palette.h"
#include "picture.h"
#include "windText.h"

namespace {

using namespace velmar::tool;

class WindChartTest : public PictureTest {
protected:
    WindGrid wind(const WindText& text) const {
        const std::string file = write("w.000", text.text());
        return readWindFile(readFileHead(file));
    }
};

constexpr Colour weak{0, 0, 1};
constexpr Colour strong{1, 0, 0};

bool isWeak(const Pixel& p) { return p[2] > p[0] + 100; }
bool isStrong(const Pixel& p) { return p[0] > p[2] + 100; }

BareMap draw(const StreamlineSet& set, const GeoBox& bounds) {
    BareMap map(bounds, 600, 300);
    map.draw(StreamlineLayer(set, {0, 360, 1, -90, 90, 1}, {weak, strong}));
    return map;
}

TEST(StreamlineLayer, ColoursPiecesByTheirBandAlsoAcrossTheDateLine) {
    StreamlineSet set{.levels = {0, 10}, .pieces = {}, .firstPieces = {0, 21}, .arrows = {}};
    for (int k = 0; k <= 20; ++k)
        set.pieces.push_back({{170.0F + static_cast<float>(k), 10}, k > 10 ? 1 : 0});
    for (const double west : {160.0, -200.0}) {
        const BareMap map = draw(set, {west, west + 40, -10, 30});
        for (int k = 11; k < 29; ++k) {
            if (k == 20) continue;
            const Pixel pixel = map.at(west + k, 10);
            EXPECT_TRUE(k < 20 ? isWeak(pixel) : isStrong(pixel)) << k;
        }
    }
    // A line that gets nowhere is left out.
    set.firstPieces = {0, 2};
    EXPECT_EQ(draw(set, {0, 360, -90, 90}).picture.count(isWeak), 0);
}

TEST(StreamlineLayer, HeadsPointDownwindAndKeepApart) {
    StreamlineSet set{.levels = {0, 10}, .pieces = {}, .firstPieces = {0}, .arrows = {}};
    // Northeastward on the globe; on this map, which is twice as wide as high, more to the east.
    set.arrows.push_back({{99, 9}, {100, 10}, 1});
    const BareMap one = draw(set, {80, 120, 0, 20});
    const auto ink = [&](double longitude, double latitude) { return isStrong(one.at(longitude, latitude)); };
    EXPECT_TRUE(ink(99.8, 9.8));
    EXPECT_FALSE(ink(100.1, 10.1));
    EXPECT_TRUE(ink(99.65, 9.75));
    EXPECT_TRUE(ink(99.75, 9.65));
    const int headSize = one.picture.count(isStrong);
    EXPECT_GT(headSize, 15);

    for (int k = 1; k < 30; ++k)
        set.arrows.push_back({{99, 9.0F + 0.03F * static_cast<float>(k)}, {100, 10}, 1});
    EXPECT_EQ(draw(set, {80, 120, 0, 20}).picture.count(isStrong), headSize);
    set.arrows.push_back({{109, 9}, {110, 10}, 1});
    EXPECT_NEAR(draw(set, {80, 120, 0, 20}).picture.count(isStrong), 2 * headSize, 5);
    // A head that would stick out of the field is left out.
    set.arrows = {{{360, 10}, {359.9F, 10}, 1}};
    EXPECT_EQ(draw(set, {340, 380, 0, 20}).picture.count(isStrong), 0);
}

TEST_F(WindChartTest, FlowRunsThroughTheSeamInTheMidstOfTheMap) {
    const WindGrid file = wind(WindText{}.circling());
    const MapFrame map{{-65, 65, -40, 40}, {0, 0, 650, 400}};
    const WindGrid flow = flowField(file, map);
    EXPECT_EQ(flow.header.lattice.startLongitude, -180);
    EXPECT_EQ(flow.header.lattice.endLongitude, 170);
    const StreamlineSet set = traceStreamlines(flow, 5, {0});
    ASSERT_GT(set.lineCount(), 3U);
    for (std::size_t k = 0; k < set.lineCount(); ++k) {
        EXPECT_LT(set.line(k).front().end.longitude, -65);
        EXPECT_GT(set.line(k).back().end.longitude, 65);
    }
}

TEST_F(WindChartTest, TooFineGridsAreThinnedEvenlyRoundTheGlobe) {
    WindText text;
    text.circling();
    text.u = [](double longitude, double) { return longitude / 10; };
    text.v = [](double, double latitude) { return latitude; };
    const WindGrid file = wind(text);
    const WindGrid flow = flowField(file, {{20, 380, -80, 80}, {0, 0, 72, 36}});
    EXPECT_EQ(flow.u.nx, 18);
    EXPECT_EQ(flow.u.ny, 9);
    EXPECT_EQ(flow.header.lattice.longitudeStep, 20);
    EXPECT_EQ(flow.header.lattice.endLatitude, 80);
    EXPECT_EQ(flow.u.at(0, 0), 2);
    EXPECT_EQ(flow.u.at(17, 3), 0);
    EXPECT_EQ(flow.v.at(5, 8), 80);
    // Larger maps have room for more lines.
    int before = 1;
    for (const double width : {100.0, 700.0, 1400.0, 9000.0}) {
        const int density = densityFor(file, {{0, 360, -80, 80}, {0, 0, width, width / 2}});
        EXPECT_GE(density, before);
        before = density;
    }
    EXPECT_GT(before, 5);
}

TEST_F(WindChartTest, TextsTellWhatTheColoursAreAndTheStrongestWindShown) {
    WindText text;
    text.u = [](double longitude, double) { return longitude - 90; };
    const WindGrid file = wind(text);
    for (const auto quantity : {WindQuantity::speed, WindQuantity::divergence}) {
        const GridFile values = windQuantity(file, quantity, 1e5F);
        const GlobeGrid field = onGlobe(values);
        const ChartTexts texts = textsOf(file, field, true, quantity, {101, 105, 22, 28});
        EXPECT_EQ(texts.title, "WIND");
        EXPECT_EQ(texts.subtitle, "500 hPa   2024-02-28 12:00 + 36 h, valid 2024-03-01 00:00");
        EXPECT_THAT(texts.caption,
                    HasSubstr(quantity == WindQuantity::speed ? "wind speed, m/s" : "divergence, 10⁻⁵ s⁻¹"));
        EXPECT_THAT(texts.extremes, HasSubstr("strongest wind 15.0 m/s at 22°N 105°E"));
        EXPECT_FALSE(texts.hasNoData);
        // Differences have no values at the edges.
        EXPECT_EQ(textsOf(file, field, true, quantity, {100, 110, 20, 30}).hasNoData,
                  quantity == WindQuantity::divergence);
    }
}

TEST_F(WindChartTest, LinesOrAreasTakeTheColoursOfTheBands) {
    WindText text;
    text.v = [](double longitude, double) { return longitude > 107 ? 9999 : 0; };
    const std::string file = write("w.000", text.text());
    const Picture lines = drawn({"chart", file, "--levels=5,20"});
    const std::vector<Colour> colours = lineColours(3);
    const int bar = lines.count(colours[0]);
    EXPECT_GT(lines.count(colours[1]), bar + 500);
    EXPECT_LT(lines.count(colours[1]), 60000);
    EXPECT_LT(lines.count(colours[2]), 2 * bar);
    EXPECT_GT(lines.count(noDataGrey), 50000);
    EXPECT_EQ(run({"chart", file, "-o", path("c.png"), "--levels=5,20", "--fill"}).err, "");
    EXPECT_GT(Picture(path("c.png")).count(bandColours({5, 20})[1]), 200000);
    text.u = [](double longitude, double) { return longitude; };
    expectReplies({"chart", write("w.000", text.text()), "-o", path("c.png"), "--interval=0.01"},
                  {{{}, 1, "too many for the colours of lines"}});
}

TEST_F(WindChartTest, FillTakesAWordAndLeavesFilesAlone) {
    const std::string file = write("w.000", WindText{}.text());
    const std::string grid = write("g.000", GridText{}.text());
    const auto pictureOf = [&](const Arguments& arguments) {
        return outOf({"chart", "-o", "-", "--size=600x400"}, arguments);
    };
    const std::string speed = pictureOf({"--fill", file});
    EXPECT_EQ(pictureOf({"--fill", "speed", file}), speed);
    EXPECT_EQ(pictureOf({file, "--fill", "speed"}), speed);
    EXPECT_EQ(pictureOf({file, "--fill=speed"}), speed);
    EXPECT_NE(pictureOf({file, "--fill=vorticity"}), speed);
    EXPECT_NE(pictureOf({file}), speed);
    EXPECT_EQ(pictureOf({"--fill", grid}), pictureOf({"--fill", "divergence", grid}));

    expectReplies({"chart", "-o", path("c.png")},
                  {{{file, "--fill=humidity"}, 2, "none of speed, divergence and vorticity"},
                   {{"--fill", "speed"}, 2, "FILE is required"},
                   {{grid, "--fill=speed"}, 0, "a grid file has one quantity"},
                   {{grid, "--density=3"}, 0, "a grid file has no streamlines"},
                   {{file, "--centers"}, 0, "a wind file has no centres"}});
}

}  // namespace
