
#include "byteImages.h"
#include "chart/layers/coverageLayer.h"
#include "chart/layers/imageLayer.h"
#include "picture.h"

namespace {

using namespace velmar::tool;

class ImageTest : public PictureTest {
protected:
    BareMap draw(const ByteImageText& image, const GeoBox& bounds, int width = 440, int height = 400) const {
        const ByteImageFile file = readByteImageFile(readFileHead(write("image", image.text())));
        BareMap map(bounds, width, height);
        map.draw(ImageLayer(file));
        return map;
    }
};

Pixel greyOf(int value) {
    const int grey = static_cast<int>(std::lround(255.0 * value / 254));
    return {grey, grey, grey};
}

TEST_F(ImageTest, EveryPixelIsInItsPlace) {
    ByteImageText image;
    image.value = [](int column, int row) { return 2 + 9 * column + 13 * row; };
    for (const double dy : {-1.0, 1.0}) {
        for (const double dx : {-1.0, 1.0}) {
            image.dx = dx;
            image.dy = dy;
            image.west = dx > 0 ? 100 : 111;
            image.first = dy > 0 ? 31 : 40;
            // Also where the map is a circle away, and where a paper unit holds many pixels of the picture.
            for (const GeoBox& bounds :
                 {GeoBox{99.5, 111.5, 30.5, 40.5}, GeoBox{-260.5, -248.5, 30.5, 40.5}}) {
                const BareMap map = draw(image, bounds);
                for (int row = 0; row < image.ny; ++row)
                    for (int column = 0; column < image.nx; ++column)
                        EXPECT_TRUE(
                            isLike(map.at(bounds.west + 0.5 + (image.west + column * dx - 100) + 0.005,
                                          image.first + row * dy - 0.005),
                                   greyOf(image.value(column, row))));
            }
        }
    }
}

TEST_F(ImageTest, NothingIsMadeUpWhereThereIsNoPicture) {
    ByteImageText image;
    image.value = [](int column, int row) {
        return column == 4 && row == 5 ? 255 : column == 8 && row == 5 ? 20 : 200;
    };
    const auto isNoData = [](const Pixel& p) { return isLike(p, pixelOf(noDataGrey)); };
    const auto isPicture = [](const Pixel& p) { return isLike(p, greyOf(200)); };
    const int cell = 440 * 400 / 120;
    const GeoBox bounds{99.5, 111.5, 30.5, 40.5};
    for (const int kind : {1, 5}) {
        image.kind = kind;
        const BareMap map = draw(image, bounds);
        EXPECT_TRUE(isNoData(map.at(104.4, 35.4)));
        EXPECT_EQ(isNoData(map.at(108.4, 35.4)), kind == 5);
        const int holes = map.picture.count(isNoData);
        EXPECT_NEAR(holes, kind == 5 ? 2 * cell : cell, 0.1 * cell);
        EXPECT_EQ(map.picture.count([](const Pixel& p) { return p[0] < 50; }) > 0, kind == 1);
        EXPECT_EQ(holes + map.picture.count(isPicture) == 440 * 400, kind == 5);
    }
    // Outside there is none either.
    const BareMap wide = draw(image, {90, 120, 30, 45});
    EXPECT_TRUE(isNoData(wide.at(99.3, 35)));
    EXPECT_TRUE(isNoData(wide.at(111.7, 35)));
    EXPECT_TRUE(isNoData(wide.at(105, 40.8)));
    EXPECT_TRUE(isPicture(wide.at(99.7, 30.7)));
}

TEST_F(ImageTest, PicturesRoundTheGlobeHaveNoSeam) {
    ByteImageText image{.nx = 36, .dx = 10, .west = 0};
    image.value = [](int column, int) { return column < 18 ? 10 * column : 10 * (35 - column); };
    const BareMap map = draw(image, {-90, 270, 31, 40}, 720, 90);
    for (int x = 1; x < 720; ++x)
        EXPECT_LE(std::abs(map.picture.at(x, 45)[0] - map.picture.at(x - 1, 45)[0]), 2) << x;
}

TEST_F(ImageTest, ChartsAreCutToThePictureAndSayWhatDoesNotApply) {
    const std::string file = write("image", ByteImageText{}.text());
    EXPECT_EQ(run({"chart", file, "-o", path("c.png")}).err, "");
    const Picture chart(path("c.png"));
    EXPECT_GT(chart.count([](const Pixel& p) { return isLike(p, greyOf(60)); }), 100);
    EXPECT_LT(chart.count(noDataGrey), 2000);
    for (const char* option : {"--fill", "--levels=5", "--interval=5", "--auto=5", "--centers"})
        drawn({"chart", file}, {option}, "it is drawn as the picture that it is");
    expectReplies({"contour", file, "-o", path("c.csv")}, {{{}, 1, "byte image (type 13)"}});
}

TEST_F(ImageTest, InfoTellsPlaceValuesAndShareOfNoData) {
    ByteImageText image;
    image.value = [](int column, int row) { return row == 0 ? 255 : 10 * column + row; };
    const std::string file = write("image", image.text());
    expectHolds(infoOf(file),
                R"({"time": "2009-09-21 06:00", "latitudes": {"end": 31}, "values": 120, "missing": 12,
                    "longitudes": {"start": 100, "end": 111, "step": 1, "count": 12},
                    "largest": {"value": 119}, "smallest": {"latitude": 39}})");
    EXPECT_THAT(outOf({"info", file}), HasSubstr("120, 12 of them missing (10.0%)"));
}

TEST_F(ImageTest, SaysWhatIsWrongWithAPicture) {
    const std::string whole = ByteImageText{}.text();
    const std::vector<Reply> replies{
        {{write("a", whole.substr(0, 100))}, 1, "it is cut off"},
        {{write("b", whole.substr(0, whole.size() - 1))}, 1, "it is cut off"},
        {{write("c", ByteImageText{.nx = 0}.text())}, 1, "its header gives it 0 columns and 10 rows"},
        {{write("d", ByteImageText{.west = std::nan("")}.text())}, 1, "not all finite numbers"}};
    expectReplies({"info"}, replies);
    expectReplies({"chart", "-o", path("c.png")}, replies);
}

}  // namespace
