#include <cmath>
#include <map>
#include <sstream>

#include "picture.h"
#include "stationTexts.h"

namespace {

/// The values of a CSV by longitude and latitude; points without data are missing.
using Field = std::map<std::pair<double, double>, double>;

Field readField(const std::string& csv) {
    Field field;
    std::istringstream rows(csv);
    std::string row;
    std::getline(rows, row);
    EXPECT_EQ(row, "longitude,latitude,value");
    while (std::getline(rows, row)) {
        std::istringstream in(row);
        in.imbue(std::locale::classic());
        double longitude = 0;
        double latitude = 0;
        double value = 0;
        char comma = 0;
        if (in >> longitude >> comma >> latitude >> comma >> value) field[{longitude, latitude}] = value;
    }
    return field;
}

/// A station every half degree with the values of a plane, none of them on a whole degree.
std::vector<TestStation> plane() {
    std::vector<TestStation> stations;
    for (double longitude = 100.25; longitude < 110; longitude += 0.5)
        for (double latitude = 30.25; latitude < 40; latitude += 0.5)
            stations.push_back({longitude, latitude, 2 * (longitude - 100) - 3 * (latitude - 30) + 5});
    return stations;
}

class AnalyseTest : public PictureTest {
protected:
    Field field(const std::string& text, const Arguments& options) const {
        return readField(outOf({"analyse", write("stations", text), "-o", "-", "--format", "csv"}, options));
    }
};

TEST_F(AnalyseTest, BringsBackAPlaneThatStationsWereTakenFrom) {
    const std::string text = stationValues(plane());
    for (const auto& [method, tolerance] :
         std::map<std::string, double>{{"barnes", 0.2}, {"cressman", 0.7}, {"nearest", 1.3}}) {
        const Field found = field(text, {"--method", method, "--bounds", "102,108,32,38", "--step", "0.5,1"});
        EXPECT_EQ(found.size(), 13U * 7U);
        for (const auto& [place, value] : found)
            EXPECT_NEAR(value, 2 * (place.first - 100) - 3 * (place.second - 30) + 5, tolerance)
                << method << " at " << place.first << ' ' << place.second;
    }
}

TEST_F(AnalyseTest, AllStationsWithAValueTakePart) {
    // Each at a grid point of its own: the first, the last, and those beside missing ones.
    const std::vector<TestStation> stations{{101, 31, 11.5},   {103, 32, 9999},   {105, 33, -2.25},
                                            {107, 34, 999999}, {106, 37, 9998.5}, {102, 38, 9999.9},
                                            {108, 39, 40}};
    for (const std::string method : {"barnes", "nearest"}) {
        const Field found = field(stationValues(stations), {"--method", method, "--step", "1"});
        EXPECT_EQ(found.size(), 10U * 11U) << "a degree more than the stations with values cover";
        for (const auto& [longitude, latitude, value] : {stations[0], stations[2], stations[4], stations[6]})
            EXPECT_EQ(found.at({longitude, latitude}), value) << method;
    }
    // Out of reach of the corrections the first guess alone says that the first station is the nearer one.
    const Field far = field(stationValues({{101, 31, 7}, {125, 31, 100}}), {"--step", "1"});
    EXPECT_NEAR(far.at({109, 31}), 7, 1e-3);
    // A sum of -9999 is no obstacle.
    const std::string sum = stationValues({{101, 31, -4999.5}, {102, 31, -4999.5}});
    EXPECT_EQ(field(sum, {"--method", "cressman", "--step", "1"}).at({102, 31}), -4999.5);
}

TEST_F(AnalyseTest, ReadsReportsWithAndWithoutExtraValues) {
    const std::string reports = surfaceReports({{101, 31, 1}, {102, 32, 2}, {103, 33, 3}, {104, 34, 4}});
    const Field twenty = field(reports, {"--step", "1"});
    const Field thirteen = field(reports, {"--step", "1", "--element", "13"});
    for (const double k : {1, 2, 3, 4}) {
        EXPECT_EQ(twenty.at({100 + k, 30 + k}), k);
        EXPECT_EQ(thirteen.at({100 + k, 30 + k}), -k);
    }
    expectReplies(
        {"analyse", path("stations"), "-o", "-", "--element"},
        {{{"5"}, 1, "no element 5, only 6 to 26"}, {{"12"}, 1, "no station has a value of element 12"}});
}

TEST_F(AnalyseTest, StationsOfEitherLongitudeAreFound) {
    for (const std::string method : {"barnes", "cressman", "nearest"}) {
        const auto at = [&](double longitude, const std::string& bounds) {
            const std::vector<TestStation> stations{
                {longitude, 40, 20}, {longitude + 2, 41, 30}, {longitude, 43, 10}};
            return field(stationValues(stations), {"--method", method, "--step", "1", bounds});
        };
        const Field east = at(270, "--bounds=267,275,38,45");
        const Field west = at(-90, "--bounds=267,275,38,45");
        EXPECT_EQ(east, west) << method;
        EXPECT_NEAR(west.at({270, 40}), 20, 2);
        EXPECT_NEAR(at(270, "--bounds=-93,-85,38,45").at({-90, 40}), 20, 2);
    }
    // Stations on both sides of the seam are neighbours.
    const Field seam = field(stationValues({{359, 50, 1}, {1, 50, 3}, {358, 52, 2}}), {"--step", "1"});
    EXPECT_EQ(seam.begin()->first.first, 357);
    EXPECT_EQ(seam.rbegin()->first.first, 362);
}

TEST_F(AnalyseTest, PointsThatNoStationReachesHaveNoData) {
    const std::string text = stationValues({{100, 30, 5}, {101, 31, 6}});
    const auto masked = [&](const std::string& method, const std::string& radius) {
        return field(text,
                     {"--method", method, "--bounds=98,140,28,34", "--step=1", "--mask-radius", radius});
    };
    EXPECT_EQ(masked("nearest", "0").size(), 43U * 7U);
    for (const std::string method : {"barnes", "cressman", "nearest"}) {
        const Field near = masked(method, "1");
        EXPECT_TRUE(near.contains({100, 30}) && near.contains({101, 30})) << method;
        EXPECT_FALSE(near.contains({98, 30}) || near.contains({103, 31})) << method;
        EXPECT_EQ(masked(method, "0").contains({139, 30}), method == "nearest");
    }
    outOf({"analyse", path("stations"), "--method=cressman", "--bounds=98,140,28,34", "--step=1", "-o",
           path("g.000")});
    const json info = infoOf(path("g.000"));
    EXPECT_GT(info["missing"], 200);
    EXPECT_LT(info["largest"]["value"], 7);
    EXPECT_GT(info["smallest"]["value"], 4);
}

TEST_F(AnalyseTest, WritesGridFilesThatSayWhatTheStationFileSays) {
    const std::string file = write("reports", surfaceReports(plane()));
    outOf({"analyse", file, "-o", path("95031820.003"), "--bounds", "102,108,32,38", "--step", "0.4"});
    const json info = infoOf(path("95031820.003"));
    expectHolds(info, R"({"title": "地面", "start": "1995-03-18 20:00",
                          "longitudes": {"start": 102, "end": 108, "step": 0.4, "count": 16}})");
    EXPECT_GT(info["contours"]["interval"], 1);
    EXPECT_EQ(run({"chart", path("95031820.003"), "-o", path("c.png")}).err, "");

    // Levels of the file's own where they fit, automatic ones where a grid file has no room for them.
    const auto contours = [&](const std::string& levels) {
        outOf({"analyse", write("values", stationValues(plane(), levels)), "-o", path("v.000")});
        return infoOf(path("v.000"))["contours"]["interval"];
    };
    EXPECT_EQ(contours("3 -20 0 20"), 20);
    for (const char* unfit : {"3 -20 0 15", "2 500 510"}) EXPECT_EQ(contours(unfit), contours("0"));
}

TEST_F(AnalyseTest, ChartsShowStationsAsDots) {
    const auto dotsOfTwo = [&](double second) {
        const std::string file = write("stations", stationValues({{103, 35, 4}, {second, 37, 4}}));
        return drawn({"analyse", file, "--no-centers", "--levels", "1000", "--bounds=100,110,30,40"});
    };
    const Picture inside = dotsOfTwo(107);
    EXPECT_GT(inside.differences(dotsOfTwo(120)), 30) << "a dot and its figure";
    EXPECT_EQ(inside.differences(dotsOfTwo(-253)), 0);
    outOf({"analyse", path("stations"), "-o", path("c.svg"), "--fill"});
}

TEST_F(AnalyseTest, RefusesInWords) {
    const std::string good = write("good", stationValues(plane()));
    expectReplies({"analyse"},
                  {{{good, "--method", "kriging"}, 2, "kriging"},
                   {{good, "--step", "0"}, 2, "not one or two numbers above 0"},
                   {{good, "--step", "1,1,1"}, 2, "not one or two numbers above 0"},
                   {{good, "--mask-radius", "-1"}, 2, "not in range"},
                   {{good, "--step", "0.001"}, 1, "more than 4000000 points"},
                   {{good, "--step", "50"}, 1, "a step of 50 is too wide"},
                   {{good, "--bounds", "10,20,30,40"}, 1, "no station with a value lies within"},
                   {{write("grid", GridText{}.text())}, 1, "grid of one quantity (type 4)"},
                   {{write("cut", "diamond 3 T 2024 1 1")}, 1, "its header cannot be read"},
                   {{write("none", stationValues({}))}, 1, "no station has a value of element 1"}},
                  {"-o", path("no.000")});
    EXPECT_FALSE(std::filesystem::exists(path("no.000")));
    // What can be done otherwise is done, and the user is told.
    const std::string whole = stationValues(plane());
    expectReplies(
        {"analyse", "-o", "-"},
        {{{write("short", whole.substr(0, whole.size() - 30))}, 0, "promises 400 stations, but only 39"},
         {{good, "--bounds", "102.5,107.5,32,38"}, 0, "widened to whole degrees: 102,108,32,38"}});
}

TEST_F(AnalyseTest, InfoTellsWhatStationFilesHold) {
    const std::vector<TestStation> stations{{-101, 31, 1.5}, {103, -32.5, 9999}, {105, 33, 3}};
    expectHolds(infoOf(write("v", stationValues(stations, "2 0 5"))),
                R"({"stations": 3, "start": "2024-02-28 12:00", "level": 850, "levels": [0, 5],
                    "latitudes": {"smallest": -32.5, "largest": 33},
                    "elements": [{"element": 1, "stations": 2, "smallest": 1.5, "largest": 3}]})");
    const std::string reports = outOf({"info", write("r", surfaceReports(plane()))});
    EXPECT_THAT(reports, HasSubstr("  stations    400\n"));
    EXPECT_THAT(reports, HasSubstr("  element 7   400 stations, 130 to 130; by custom wind direction, °\n"));
    EXPECT_THAT(reports, Not(HasSubstr("element 10")));
    // Files of several values a station are described too.
    const std::string several =
        write("s", "diamond 3 T 2024 1 1 0 0 0 0 0 0 2 3 1 100 30 0 5 6 2 101 31 0 7 9999");
    EXPECT_THAT(outOf({"info", several}),
                HasSubstr("stations    2, but its header promises 3\n  longitudes  100 to 101\n"));
}

}  // namespace
