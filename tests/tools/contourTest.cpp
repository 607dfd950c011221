#include <fmt/format.h>

#include <cmath>
#include <set>
#include <sstream>

#include "program.h"

namespace {

class ContourTest : public ProgramTest {
protected:
    json lines(const std::string& file, const Arguments& options = {}) const {
        return json::parse(outOf({"contour", file, "-o", "-"}, options))["features"];
    }

    std::set<double> levels(const std::string& file, const Arguments& options) const {
        std::set<double> values;
        for (const json& line : lines(file, options))
            values.insert(line["properties"]["value"].get<double>());
        return values;
    }
};

/// The value of a global grid of 2.5 degrees, north to south, on an edge between two of its points.
double onEdge(const std::vector<double>& values, double longitude, double latitude) {
    const double x = longitude / 2.5;
    const double y = (90 - latitude) / 2.5;
    const auto at = [&](double i, double j) {
        return values[static_cast<std::size_t>(std::min(j, 72.0)) * 144 + static_cast<std::size_t>(i) % 144];
    };
    const double i = std::floor(x);
    const double j = std::floor(y);
    return (1 - (x - i)) * (1 - (y - j)) * at(i, j) + (x - i) * (1 - (y - j)) * at(i + 1, j) +
           (1 - (x - i)) * (y - j) * at(i, j + 1) + (x - i) * (y - j) * at(i + 1, j + 1);
}

TEST_F(ContourTest, LinesLieOnTheirLevelAndEndOnlyAtTheEdge) {
    const std::string file = sample("grids/h500_global.000");
    std::istringstream text(readFile(file));
    text.imbue(std::locale::classic());
    std::string word;
    for (int k = 0; k < 22; ++k) text >> word;
    std::vector<double> values;
    for (double value = 0; text >> value;) values.push_back(value);
    ASSERT_EQ(values.size(), 144 * 73);

    bool reachesWest = false;
    bool reachesEast = false;
    for (const json& line : lines(file)) {
        const json& points = line["geometry"]["coordinates"];
        const double level = line["properties"]["value"];
        for (const json& point : points) EXPECT_NEAR(onEdge(values, point[0], point[1]), level, 0.01);
        EXPECT_EQ(line["properties"]["closed"], points.front() == points.back());
        if (points.front() == points.back()) continue;
        for (const json& end : {points.front(), points.back()}) {
            const double longitude = end[0];
            EXPECT_TRUE(longitude == 0 || longitude == 360 || std::fabs(end[1].get<double>()) == 90) << end;
            reachesWest |= longitude == 0;
            reachesEast |= longitude == 360;
        }
    }
    EXPECT_TRUE(reachesWest && reachesEast) << "lines should cross the seam";
}

TEST_F(ContourTest, TakesTheLevelsItIsTold) {
    GridText grid;
    grid.value = [](double longitude, double latitude) {
        return longitude - 100.03 + latitude - 20;
    };  // 0 to 20
    const std::string file = write("grid", grid.text());
    EXPECT_THAT(levels(file, {}), ElementsAre(0, 5, 10, 15));
    EXPECT_THAT(levels(file, {"--levels", "12.5,3,3,-7"}), ElementsAre(3, 12.5));
    EXPECT_THAT(levels(file, {"--interval", "7"}), ElementsAre(0, 7, 14));
    EXPECT_THAT(levels(file, {"--auto", "4"}), ElementsAre(0, 5, 10, 15));
    EXPECT_THAT(levels(file, {"--levels=-1,500"}), ElementsAre());

    // Steps of 1 lead nowhere at values like these.
    grid.value = [](double, double) { return 1e20; };
    EXPECT_THAT(levels(write("large", grid.text()), {"--interval", "1"}), ElementsAre());
}

TEST_F(ContourTest, ChoosesLevelsWhereTheHeaderGivesNone) {
    for (const std::string hints : {"0 0 10 0 0", "-1 0 10 0 0", "1 10 0 0 0", "1 500 600 0 0",
                                    "nan 0 10 0 0", "1e-9 0 200 0 0", "4 90 99 0 0", "1000 0 5000 0 0"}) {
        const Answer result = run({"contour", write("grid", GridText{.hints = hints}.text()), "-o", "-"});
        EXPECT_THAT(result.err, StartsWith("velmar: " + path("grid") + ": the levels of its header"))
            << hints;
        EXPECT_THAT(result.err, HasSubstr("give no lines; levels were chosen from the data")) << hints;
        EXPECT_GT(json::parse(result.out)["features"].size(), 3U) << hints;
    }
}

TEST_F(ContourTest, GridsWithoutDataHaveNoLines) {
    const std::string missing =
        write("missing", GridText{.value = [](double, double) { return 9999; }}.text());
    expectReplies({"contour", "-o", "-"},
                  {{{missing}, 0, "it holds no data, only missing values"},
                   {{write("empty", GridText{.nx = 0}.text())}, 0, ""},
                   {{write("nowhere", GridText{.step = std::nan("")}.text())}, 1, "not all finite numbers"}});
    EXPECT_EQ(json::parse(outOf({"contour", missing, "-o", "-"})),
              json::parse(R"({"type":"FeatureCollection","features":[]})"));
}

TEST_F(ContourTest, WritesTheSamePointsAsCommaSeparatedValues) {
    const std::string file = sample("grids/rh700_asia.000");
    std::istringstream rows(outOf({"contour", file, "-o", "-", "--format", "csv"}));
    std::string row;
    std::getline(rows, row);
    EXPECT_EQ(row, "line,value,closed,longitude,latitude");
    int number = 0;
    for (const json& line : lines(file)) {
        ++number;
        const json& geometry = line["geometry"];
        const bool isPoint = geometry["type"] == "Point";
        const json points = isPoint ? json::array({geometry["coordinates"]}) : geometry["coordinates"];
        EXPECT_EQ(isPoint, points.size() == 1);
        for (const json& point : points) {
            ASSERT_TRUE(std::getline(rows, row));
            const json& properties = line["properties"];
            EXPECT_EQ(row, fmt::format("{},{:g},{},{},{}", number, properties["value"].get<float>(),
                                       properties["closed"].get<bool>(), point[0].get<float>(),
                                       point[1].get<float>()));
        }
    }
    EXPECT_FALSE(std::getline(rows, row));
    EXPECT_GT(number, 100);
}

}  // namespace
