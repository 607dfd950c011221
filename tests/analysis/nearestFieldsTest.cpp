#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysis/stationTexts.h"
#include "support/samples.h"

namespace {

using namespace velmar;
using test::all;
using test::Block;
using test::reportsOf;
using test::said;
using test::TemporaryFile;
using test::textOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

using Values = std::vector<float>;

/// A field along the equator, or another parallel, from 100 E on.
Values spread(const Values& lon, const Values& value, float radius, float latitude = 0, int nx = 4) {
    const Values lat(lon.size(), latitude);
    const Block block(TqqOA(lon.data(), lat.data(), value.data(), static_cast<int>(lon.size()), 0, 100,
                            99 + static_cast<float>(nx), latitude, latitude, 1, 1, radius));
    const Values elements = all(block);
    return {elements.begin() + 9, elements.end()};
}

Values flags(const std::string& text, int element, float radius) {
    const Block block(
        ReadVelmar1Tqq(TemporaryFile(text).path().c_str(), 0, element, 0, 100, 103, 0, 0, 1, 1, radius));
    const Values elements = all(block);
    return {elements.begin() + 9, elements.end()};
}

std::vector<test::Report> onEquator(int field, const std::vector<std::string>& values) {
    std::vector<test::Report> reports = reportsOf(field, values);
    for (std::size_t k = 0; k < reports.size(); ++k)
        reports[k] = {100 + static_cast<float>(k), 0, reports[k].fields};
    return reports;
}

using NearestFields = test::StationFiles;

TEST_F(NearestFields, TakeTheNearestValueWithinTheRadius) {
    EXPECT_THAT(spread({100, 102, 105}, {7, 8, 9}, 1), ElementsAre(7, -1, 8, -1)) << "nearer than the radius";
    EXPECT_THAT(spread({100, 102, 105}, {7, 8, 9}, 1.5F), ElementsAre(7, 7, 8, 8)) << "the first of equals";
    EXPECT_THAT(spread({102, 100, 105}, {8, 7, 9}, 1.5F), ElementsAre(7, 8, 8, 8));
    EXPECT_THAT(spread({100, 101, 102, 103}, {0, -0.5F, 9999.5F, 6}, 0.5F), ElementsAre(0, -1, -1, -1))
        << "0 stays, a value below is none, 9999 is none, the last station is left out";
    EXPECT_THAT(spread({100, 100, 103}, {-2, 5, 6}, 9), ElementsAre(-1, -1, -1, -1));
    EXPECT_THAT(spread({100, 50}, {7, 9}, 1, 70, 6), ElementsAre(7, 7, -1, -1, -1, -1))
        << "two degrees of longitude are near at 70 N, but outside the box";
    EXPECT_THAT(spread({}, {}, 5), ElementsAre(-1, -1, -1, -1));
    EXPECT_EQ(TqqOA(nullptr, nullptr, nullptr, 1, 0, 0, 1, 0, 1, 1, 1, 1), nullptr) << "lists are needed";
}

TEST_F(NearestFields, SayWhereTheyAre) {
    const Values lon{100, 110, 105, 200}, lat{0, 10, 5, 80}, value{7, 9, 8, 999999};
    const auto call = [&](int autoBounds, float lonStep) {
        return Block(
            TqqOA(lon.data(), lat.data(), value.data(), 4, autoBounds, 101, 108, 2, 3.5F, 0.5F, lonStep, 3));
    };
    const Values expected{25, 101, 108, 2,  3.5F, 2,  0.5F, 4,  4,  7,  -1, -1, -1,
                          7,  -1,  -1,  -1, -1,   -1, -1,   -1, -1, -1, -1, -1};
    EXPECT_EQ(said([&] { EXPECT_EQ(all(call(0, 2)), expected); }), "2 9.000000 7.000000\n");
    EXPECT_THAT(
        textOf("OATQQ.000"),
        EndsWith("\n2.000000 0.500000 101.000000 108.000000 2.000000 3.500000\n4 4 5.000000 0.0 5.0 0 0.0\n"
                 "    7.00\n   -1.00\n   -1.00\n   -1.00\n\n    7.00\n   -1.00\n   -1.00\n   -1.00\n\n"
                 "   -1.00\n   -1.00\n   -1.00\n   -1.00\n\n   -1.00\n   -1.00\n   -1.00\n   -1.00\n\n"));
    const Values fitted = all(call(1, 2));
    EXPECT_THAT(Values(fitted.begin(), fitted.begin() + 9),
                ElementsAre(7 * 25 + 9, 99, 111, -1, 11, 2, 0.5F, 7, 25));
    EXPECT_THAT(all(call(0, -2)), ElementsAre(9, 101, 108, 2, 3.5F, -2, 0.5F, -2, 4)) << "an empty area";
}

TEST_F(NearestFields, OfReportsAreFlags) {
    const std::string text = test::surfaceText(onEquator(19, {"9.9", "10", "12", "12.1", "11", "11"}));
    EXPECT_THAT(said([&] { EXPECT_THAT(flags(text, 0, 0.5F), ElementsAre(-1, 1, 1, -1)); }),
                HasSubstr("6 stations have value\nFind a station\nFind a station\nFind a station\n"
                          "4 1.000000 -1.000000\n"));
    EXPECT_THAT(
        textOf("OAtestttq.000"),
        EndsWith("\n1.000000 1.000000 100.000000 103.000000 0.000000 0.000000\n4 1 5.000000 0.0 5.0 0 0.0\n"
                 "   -1.00\n    1.00\n    1.00\n   -1.00\n\n"));
    EXPECT_THAT(flags(test::surfaceText(onEquator(17, {"9999", "0", "3", "4", "5"})), 1, 0.5F),
                ElementsAre(-1, -1, 1, -1))
        << "values and positions are in step, the last station is left out";
    EXPECT_THAT(flags(test::surfaceText(onEquator(17, {"1", "1", "1"})), 2, 9), ElementsAre(-1, -1, -1, -1));
}

/// The number in the table is the method for station values, the element for reports.
TEST_F(NearestFields, AndAnalysesOfSamplesStayAsTheyAre) {
    test::expectResultsAsIn("analysis/samples.txt", 8, [](const std::string& path, int how) {
        if (path.find("sfc") != std::string::npos)
            return ReadVelmar1Tqq(path.c_str(), 0, how, 0, 230, 300, 20, 60, 0.5F, 0.5F, 2);
        const float east = path.find("temp") != std::string::npos ? 0 : 360;
        return OAReadVelmar3(path.c_str(), how, 0, east - 130, east - 60, 20, 60, 1, 1, how > 0 ? 3 : 0);
    });
}

}  // namespace
