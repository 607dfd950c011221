#include <fmt/format.h>

#include "picture.h"
#include "read/stationFile.h"

namespace {

using namespace velmar::tool;

class RainTest : public PictureTest {
protected:
    /// Writes a file of one value a station.
    void rain(const std::string& name, const std::string& stations, int count, int values = 1) const {
        write("d/" + name,
              fmt::format("diamond 3 R\n1995 3 18 8 0 0\n0 0 0\n{} {}\n{}", values, count, stations));
    }
    Answer sum(const std::string& from, const std::string& to, const std::string& step,
               const Arguments& more = {}) const {
        return run({"rain", path("d"), "--from", from, "--to", to, "--step", step}, more);
    }
    /// The last three times of 1999 and the first of 2000, the first with a value that does not count.
    void newYear() const {
        rain("99123102.000", "1 10 50 5 1000\n", 1);
        rain("99123114.000", "1 10 50 5 0.1\n2 -11.5 51 6 9999\n", 2);
        rain("00010102.000", "2 -11.5 51 6 2.5\n1 10 50 5 0.2\n3 12 52 7 4\n", 3);
    }
};

TEST_F(RainTest, AddsUpWhatFallsAfterTheStart) {
    newYear();
    const auto answer = [&](const std::string& format) {
        return sum("1999123102", "2000010102", "12", {"-o", "-", "--format", format});
    };
    EXPECT_EQ(answer("csv").out,
              "station,longitude,latitude,height,rain\n1,10,50,5,0.3\n2,-11.5,51,6,2.5\n"
              "3,12,52,7,4\n");
    EXPECT_EQ(answer("csv").err, "");
    EXPECT_THAT(sum("1999123102", "2000010102", "12").out,
                StartsWith("rain after 1999-12-31 02:00 up to 2000-01-01 02:00, 2 files, 3 stations\n"));
    const json points = json::parse(answer("geojson").out);
    expectHolds(points["features"][1], R"({"geometry": {"coordinates": [-11.5, 51]},
                                           "properties": {"station": 2, "height": 6, "rain": 2.5}})");

    const StationFile file = readStationFile(readFileHead(write("sum.000", answer("000").out)));
    EXPECT_EQ(file.stationCount(), 3);
    EXPECT_EQ(file.value(0, 1), 0.3F);
    EXPECT_EQ(file.field.year, 2000);
    EXPECT_EQ(file.field.hour, 2);
    outOf({"analyse", path("sum.000"), "-o", path("grid.000"), "--step", "1"});
}

TEST_F(RainTest, DrawsRealSums) {
    const auto chart = [&](const std::string& to) {
        return drawn({"rain", sample("rain6h"), "--from", "1995031802", "--to", to, "--step", "6"});
    };
    EXPECT_GT(chart("1995031902").differences(chart("1995031808")), 100);
    const std::string leap = outOf({"rain", sample("rain24h"), "--from", "2012022620", "--to", "2012030320",
                                    "--step", "24", "-o", "-", "--format", "csv"});
    EXPECT_THAT(leap, HasSubstr("50001,-122.35,47.62,0,6.4\n50002,-73.94,40.67,0,22.6\n"));
}

TEST_F(RainTest, SaysWhichFileIsWrong) {
    newYear();
    const auto complaint = [&](const std::string& name, const std::string& sentence) {
        const Answer answer = sum("1999123102", "2000010102", "12", {"-o", path("no.csv")});
        EXPECT_EQ(answer.exitCode, 1);
        EXPECT_THAT(answer.err, HasSubstr(path("d/" + name) + ", cannot be added: " + sentence));
        EXPECT_THAT(answer.err, Not(HasSubstr("29 days")));
        EXPECT_FALSE(std::filesystem::exists(path("no.csv")));
    };
    rain("00010102.000", "1 10 50 5 0.2 0.3\n", 1, 2);
    complaint("00010102.000", "its stations have 2 values, not one");
    write("d/00010102.000", GridText{}.text());
    complaint("00010102.000", "it holds something else than station values (type 3)");
    std::filesystem::remove(path("d/99123114.000"));
    complaint("99123114.000", "there is no such file");

    rain("99022820.000", "1 10 50 5 1\n", 1);
    rain("99030120.000", "1 10 50 5 1\n", 1);
    EXPECT_THAT(
        sum("1999022720", "1999030120", "24").err,
        HasSubstr("99022920.000, cannot be added: there is no such file (the times of rain files count "
                  "29 days in every February)"));
    rain("99123114.000", "", 0);
    EXPECT_THAT(sum("1999123102", "1999123114", "12").err, HasSubstr("its files have no stations"));
}

TEST_F(RainTest, TellsWhatMayBeUnexpected) {
    newYear();
    rain("99123114.000", "1 10 50 5 1\n2 10 50", 5);
    const Answer cut = sum("1999123102", "1999123114", "12");
    EXPECT_EQ(cut.exitCode, 0);
    EXPECT_THAT(cut.err, HasSubstr("99123114.000 promises 5 stations, but only 1 can be read"));
    EXPECT_THAT(
        sum("1999123102", "1999123120", "24").err,
        HasSubstr("the steps do not end at 1999-12-31 20:00: the last file is that of 2000-01-01 02:00"));
    // A name with a backslash stands before that of a file in the folder.
    write("d\\99123114.000", "diamond 3 R\n1999 1 1 1 0 0\n0 0 0\n1 1\n77 10 50 5 8\n");
    EXPECT_THAT(sum("1999123102", "1999123114", "12").out, HasSubstr("        77"));
    // Neither the files of a sum nor those of other times are written.
    for (const std::string name : {"d/00010102.000", "d/99123102.000", "d\\99123114.000"}) {
        const std::string before = readFile(path(name));
        EXPECT_THAT(sum("1999123102", "2000010102", "12", {"-o", path(name)}).err,
                    HasSubstr("its output " + path(name) + " would overwrite the input"));
        EXPECT_EQ(readFile(path(name)), before);
    }
}

TEST_F(RainTest, RefusesTimesThatCannotBeAddedUp) {
    newYear();
    const std::vector<std::array<std::string, 4>> refused{
        {"1999123102", "1999123102", "12", "--from: it has to be before --to"},
        {"1999123103", "2000010102", "12", "--from: with steps of more than an hour"},
        {"1999123102", "2000010103", "12", "--to: with steps of more than an hour"},
        {"1999123105", "2000010102", "12", "--from: with steps of more than an hour"},
        {"1999123102", "2000010102", "0", "--step"},
        {"1999123102", "2000010102", "25", "--step"},
        {"1999123102", "2000013202", "12", "--to: \"2000013202\" is no time"},
        {"99123102", "2000010102", "12", "--from: \"99123102\" is no time"},
        {"1999022902", "2000010102", "12", "--from: \"1999022902\" is no time"}};
    for (const auto& [from, to, step, sentence] : refused)
        expectReplies({"rain", path("d")}, {{{"--from", from, "--to", to, "--step", step}, 2, sentence}});
    rain("99123115.000", "9 10 50 5 1\n", 1);
    EXPECT_EQ(sum("1999123114", "1999123115", "1").exitCode, 0);
    rain("99123105.000", "9 10 50 5 1\n", 1);
    EXPECT_EQ(sum("1999123005", "1999123105", "24").exitCode, 0);
}

}  // namespace
