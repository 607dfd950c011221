#include <cmath>

#include "program.h"
#include "read/gridFile.h"

namespace {

using velmar::tool::GridFile;
using velmar::tool::readGridFile;

class RefineTest : public ProgramTest {};

TEST_F(RefineTest, KeepsPointsAndHeader) {
    const std::string coarse = sample("grids/h500_global.000");
    outOf({"refine", coarse, "--factor", "3,2", "-o", path("fine.072")});
    const GridFile before = readGridFile(coarse);
    const GridFile after = readGridFile(path("fine.072"));
    // The globe stays closed.
    ASSERT_EQ(after.values.nx, 3 * before.values.nx);
    ASSERT_EQ(after.values.ny, 2 * (before.values.ny - 1) + 1);
    for (int row = 0; row < before.values.ny; ++row)
        for (int column = 0; column < before.values.nx; ++column)
            ASSERT_EQ(after.values.at(3 * column, 2 * row), before.values.at(column, row));
    const json info = infoOf(path("fine.072"));
    const json old = infoOf(coarse);
    for (const std::string key : {"title", "start", "forecastHour", "level", "contours"})
        EXPECT_EQ(info[key], old[key]);
    EXPECT_EQ(info["latitudes"], json::parse(R"({"start":90,"end":-90,"step":-1.25,"count":145})"));
    EXPECT_NEAR(info["longitudes"]["end"], 360 - 2.5 / 3, 1e-3);
}

TEST_F(RefineTest, CrossesTheSeamAsAnyOtherColumn) {
    GridText globe{.west = 0, .south = -80, .step = 10, .nx = 36, .ny = 17};
    const auto refinedBy = [&](double shift) {
        globe.value = [=](double x, double y) {
            return std::round(100 * std::sin((x + shift) / 57.29578) * y);
        };
        outOf({"refine", write("g", globe.text()), "--factor", "4", "-o", path("fine.000")});
        return readGridFile(path("fine.000"));
    };
    const GridFile here = refinedBy(0);
    const GridFile turned = refinedBy(90);
    for (int row = 0; row < here.values.ny; ++row)
        for (int column = 0; column < here.values.nx; ++column)
            ASSERT_EQ(turned.values.at(column, row), here.values.at((column + 36) % 144, row));
}

TEST_F(RefineTest, WritesCommaSeparatedValuesWithGapsWhereDataEnd) {
    GridText grid{.step = 0.1, .nx = 3, .ny = 2};
    grid.value = [](double x, double y) {
        return x > 100.15 && y > 20.05 ? 9999 : std::round(10 * (x - 100));
    };
    EXPECT_EQ(outOf({"refine", write("g", grid.text()), "--factor", "2,1", "-o", "-", "--format", "csv"}),
              "longitude,latitude,value\n100,20,0\n100.05,20,0.5\n100.1,20,1\n100.15,20,1.5\n100.2,20,2\n"
              "100,20.1,0\n100.05,20.1,0.5\n100.1,20.1,1\n100.15,20.1,\n100.2,20.1,\n");
}

TEST_F(RefineTest, RefusesFactorsAndGridsThatWillNotDo) {
    const std::string good = write("good", GridText{}.text());
    for (const std::string factor : {"0", "-2", "1.5", "2,2,2", "2,", "101", "x"})
        expectReplies({"refine", good, "-o", path("no.000")}, {{{"--factor=" + factor}, 2, "--factor: "}});
    expectReplies({"refine", "-o", path("no.000")},
                  {{{good}, 2, "--factor is required"},
                   {{sample("grids/h500_global.000"), "--factor", "100"}, 1, "more than 50000000 points"},
                   {{write("empty", GridText{.ny = 0}.text()), "--factor=2"}, 1, "11 columns and 0 rows"}});
    EXPECT_FALSE(std::filesystem::exists(path("no.000")));
}

}  // namespace
