#include <gmock/gmock.h>

#include "program.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class OutputTest : public ProgramTest {};

TEST_F(OutputTest, OneBadFileDoesNotStopTheOthers) {
    const std::string good = write("a/11100800.000", GridText{}.text());
    const std::string later = write("a/11100800.024", GridText{}.text());
    const std::string bad = write("bad", "diamond 4");
    const Answer result =
        run({"contour", good, bad, later, "--out-dir", path("new/folder"), "--format", "csv"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(filesIn("new/folder"), ElementsAre("11100800.000.csv", "11100800.024.csv"));
    EXPECT_EQ(result.out, "");
    // One line, and no progress bar where nobody looks.
    EXPECT_EQ(result.err,
              "velmar: " + bad +
                  ": its first line cannot be read: a keyword, a type number and a title are expected\n");
}

TEST_F(OutputTest, OutputsNeverReplaceEachOtherOrTheInput) {
    const std::string first = write("500/11100800.000", GridText{}.text());
    GridText other;
    other.hints = "1 0 1000 0 0";
    const std::string second = write("850/11100800.000", other.text());
    run({"contour", first, "-o", path("expected.geojson")});
    const Answer clash = run({"contour", first, second, "--out-dir", path("out")});
    EXPECT_EQ(clash.exitCode, 1);
    EXPECT_THAT(clash.err, HasSubstr(second + ": its output"));
    EXPECT_THAT(clash.err, HasSubstr("is already that of " + first));
    EXPECT_EQ(readFile(path("out/11100800.000.geojson")), readFile(path("expected.geojson")));

    const std::string self = write("self.csv", GridText{}.text());
    EXPECT_THAT(run({"contour", self, "-o", self}).err, HasSubstr("its output would overwrite it"));
    EXPECT_EQ(readFile(self), GridText{}.text());
}

TEST_F(OutputTest, FailuresLeaveNoTraces) {
    write("out/chart.png", "before");
    EXPECT_EQ(run({"chart", write("bad", "diamond 4 T 1"), "-o", path("out/chart.png")}).exitCode, 1);
    EXPECT_EQ(readFile(path("out/chart.png")), "before");

    const std::string good = write("good", GridText{}.text());
    const Answer nowhere = run({"chart", good, "-o", path("none/chart.png")});
    EXPECT_EQ(nowhere.exitCode, 1);
    EXPECT_THAT(nowhere.err,
                HasSubstr(good + ": the output " + path("none/chart.png") + " cannot be written: No such"));
    std::filesystem::create_directory(path("out/folder.png"));
    EXPECT_THAT(run({"chart", good, "-o", path("out/folder.png")}).err, HasSubstr("Is a directory"));
    EXPECT_EQ(run({"chart", good, "-o", path("out/chart.png")}).exitCode, 0);
    EXPECT_THAT(filesIn("out"), ElementsAre("chart.png", "folder.png"));
}

TEST_F(OutputTest, LinksAndDevicesStayWhatTheyAre) {
    const std::string good = write("good", GridText{}.text());
    write("real.csv", "before");
    std::filesystem::create_symlink(path("real.csv"), path("link.csv"));
    EXPECT_EQ(run({"contour", good, "-o", path("link.csv")}).exitCode, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(path("link.csv")));
    EXPECT_THAT(readFile(path("real.csv")), testing::StartsWith("line,value"));
    std::filesystem::create_symlink("/dev/full", path("full.csv"));
    EXPECT_THAT(run({"contour", good, "-o", path("full.csv")}).err, HasSubstr("No space left on device"));
}

TEST_F(OutputTest, RefusesWrongUsageInWords) {
    const std::string good = write("good", GridText{}.text());
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{}, "A subcommand is required"},
        {{"chart", good}, "say either -o FILE or --out-dir FOLDER"},
        {{"chart", good, "-o", path("c.png"), "--out-dir", path("")}, "say either"},
        {{"chart", good, good, "-o", path("c.png")}, "it takes one input"},
        {{"chart", good, "-o", path("c.gif")}, "should end in .png, .svg, .pdf"},
        {{"contour", good, "-o", path("c.png")}, "should end in .geojson, .csv"},
        {{"chart", good, "-o", path("c.png"), "--format", "svg"}, "is not the ending"},
        {{"chart", good, "--out-dir", good}, "cannot be made"},
        {{"chart", good, "-o", path("c.png"), "--bounds", "1,2,3"}, "four numbers"},
        {{"chart", good, "-o", path("c.png"), "--bounds", "nan,10,0,10"}, "not a list of numbers"},
        {{"chart", good, "-o", path("c.png"), "--bounds", "10,10,0,10"}, "west must be less than east"},
        {{"chart", good, "-o", path("c.png"), "--bounds", "0,10,20,10"}, "south must be less than north"},
        {{"chart", good, "-o", path("c.png"), "--bounds", "0,361,0,10"}, "more than a circle"},
        {{"chart", good, "-o", path("c.png"), "--bounds", "0,10,0,100"}, "between -90 and 90"},
        {{"chart", good, "-o", path("c.png"), "--size", "800"}, "not of the form 1400x900"},
        {{"chart", good, "-o", path("c.png"), "--size", "800x-600"}, "is not between"},
        {{"chart", good, "-o", path("c.png"), "--size", "99999999999x600"}, "not of the form"},
        {{"contour", good, "-o", "-", "--levels", "1,,2"}, "not a list of numbers"},
        {{"contour", good, "-o", "-", "--levels", "1e39"}, "not a list of numbers"},
        {{"contour", good, "-o", "-", "--interval", "-5"}, "not one number above 0"},
        {{"contour", good, "-o", "-", "--auto", "0"}, "not in range 1 to 200"},
        {{"contour", good, "-o", "-", "--auto", "5", "--interval", "5"}, "excludes"},
    };
    for (const auto& [arguments, sentence] : cases) {
        const Answer result = run(arguments);
        EXPECT_EQ(result.exitCode, 2) << sentence;
        EXPECT_THAT(result.err, HasSubstr(sentence));
        EXPECT_EQ(result.out, "");
    }
    EXPECT_FALSE(std::filesystem::exists(path("c.png")));
    const Answer tooMany = run({"contour", good, "-o", "-", "--interval", "0.001"});
    EXPECT_EQ(tooMany.exitCode, 1);
    EXPECT_THAT(tooMany.err, HasSubstr("more than 1000 levels between 100 and 110"));
}

TEST_F(OutputTest, HelpAndVersionAreNoFailures) {
    EXPECT_EQ(run({"--help"}).exitCode, 0);
    EXPECT_THAT(run({"chart", "--help"}).out, HasSubstr("--bounds"));
    EXPECT_THAT(run({"--version"}).out, testing::MatchesRegex("velmar [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

}  // namespace
