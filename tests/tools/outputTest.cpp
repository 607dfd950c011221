#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>

#include "byteImages.h"
#include "program.h"

namespace {

class OutputTest : public ProgramTest {};

TEST_F(OutputTest, OneBadFileDoesNotStopTheOthersWhoeverListens) {
    const std::string good = write("a/11100800.000", GridText{}.text());
    const std::string later = write("a/11100800.024", GridText{}.text());
    const std::string bad = write("bad", "diamond 4");
    for (const std::string shell : {"{}", "{} 2>/dev/full", "{} 2>&-", "{} >&- 2>&-"}) {
        SCOPED_TRACE(shell);
        const Answer result =
            run({"contour", good, bad, later, "--out-dir", path("new/folder")}, {"--format", "csv"}, shell);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(filesIn("new/folder"), ElementsAre("11100800.000.csv", "11100800.024.csv"));
        EXPECT_EQ(result.out, "");
        // One line, and no progress bar where nobody looks.
        const std::string sentence = "its first line cannot be read: a keyword, a type number and a title";
        EXPECT_EQ(result.err, shell == "{}" ? "velmar: " + bad + ": " + sentence + " are expected\n" : "");
        std::filesystem::remove_all(path("new"));
    }
}

TEST_F(OutputTest, JobsAtATimeChangeNothing) {
    // Small files behind a large one, a broken one and a missing one; the picture of a sounding would replace the chart
    // of a grid that is drawn before it.
    const Arguments files{sample("grids/h500_global.000"),
                          path("missing"),
                          sample("soundings/sounding_11101100.000"),
                          write("bad", "diamond 4 T 1"),
                          write("t", "diamond 5 T 95 2 28 12 2 1 116 40 30 6 1000 1 2 3 4 5"),
                          write("t_1", GridText{}.text()),
                          sample("winds/wind850_asia_s2n.000"),
                          sample("stations/temp_95031808.000"),
                          write("image", ByteImageText{}.text()),
                          sample("lines/iceland.777"),
                          sample("regions/africa_gbk.dat")};
    const auto resultsOf = [&](const Arguments& call, const std::string& jobs) {
        Arguments options{"-j", jobs};
        if (call.front() != "info" && call.back() != "json")
            options.insert(options.end(), {"--out-dir", path("out")});
        Arguments all = call;
        all.insert(all.end(), files.begin(), files.end());
        const Answer answer = run(all, options);
        std::map<std::string, std::string> results{
            {"", std::to_string(answer.exitCode) + answer.out + answer.err}};
        if (std::filesystem::exists(path("out")))
            for (const std::string& name : filesIn("out")) results[name] = readFile(path("out/" + name));
        std::filesystem::remove_all(path("out"));
        return results;
    };
    for (const Arguments& call : {Arguments{"chart"},
                                  {"chart", "--fill", "--format", "svg"},
                                  {"contour"},
                                  {"shade"},
                                  {"refine", "--factor=2"},
                                  {"wind", "--speed"},
                                  {"streamlines"},
                                  {"analyse"},
                                  {"triangles"},
                                  {"sounding", "--format", "csv"},
                                  {"sounding", "--format", "json"},
                                  {"info"},
                                  {"info", "--json"}}) {
        const auto one = resultsOf(call, "1");
        EXPECT_THAT(one.at(""), HasSubstr("there is no such file")) << call.front();
        if (call.front() == "chart") {
            EXPECT_THAT(one.at(""), HasSubstr(path("t") + ": its output " + path("out/t_1.")));
        }
        EXPECT_TRUE(one == resultsOf(call, "8")) << call.front() << one.at("");
    }
}

TEST_F(OutputTest, AnAnswerThatGoesNowhereIsAFailure) {
    const std::string good = write("good", GridText{}.text());
    for (const Arguments& call : {Arguments{"--help"}, {"info", good}, {"contour", good, "-o", "-"}})
        for (const std::string shell : {"{} >/dev/full", "{} >&-"}) {
            const Answer result = run(call, {}, shell);
            EXPECT_EQ(result.exitCode, 1) << call.front() << shell;
            EXPECT_THAT(result.err, HasSubstr("the output on standard output cannot be written"));
        }
}

TEST_F(OutputTest, ResultsDoNotReplaceEachOther) {
    const std::string first = write("500/11100800.000", GridText{}.text());
    const std::string second = write("850/11100800.000", GridText{.hints = "1 0 1000 0 0"}.text());
    const std::string third = write("third", GridText{}.text());
    const std::string output = write("out/11100800.000.csv", "");
    std::filesystem::create_symlink(output, path("out/third.csv"));
    for (const auto& [other, name] : {std::pair{second, "out/11100800.000.csv"}, {third, "out/third.csv"}})
        expectReplies({"contour", "--out-dir", path("out"), "--format", "csv", first, other},
                      {{{}, 1, other + ": its output " + path(name) + " is already that of " + first}});
    EXPECT_EQ(readFile(output), outOf({"contour", first, "-o", "-", "--format", "csv"}));
}

TEST_F(OutputTest, WhatACallReadsIsNotWritten) {
    const std::string grid = GridText{}.text();
    const std::string x = write("x", grid);
    const std::string next = write("x.000", grid);
    expectReplies({"refine", x, next, "--factor=2", "--out-dir", path(".")},
                  {{{}, 1, x + ": its output " + path("./x.000") + " would overwrite the input " + next}});
    EXPECT_EQ(readFile(next), grid);
    EXPECT_TRUE(std::filesystem::exists(path("x.000.000"))) << "the other file is done";

    const std::string lines = readFile(sample("lines/iceland.777"));
    const std::string map = write("coast.png", lines);
    std::filesystem::create_symlink(map, path("link.png"));
    std::filesystem::create_hard_link(map, path("hard.png"));
    const std::string stations = sample("stations/summer_rain.000");
    for (const Arguments& call : {Arguments{"chart", x}, {"analyse", stations}, {"triangles", stations}})
        for (const std::string name : {"coast.png", "link.png", "hard.png", "./none/../coast.png"})
            expectReplies(call, {{{"--map", map, "-o", path(name)}, 1, " would overwrite the input " + map}});
    EXPECT_TRUE(readFile(map) == lines);
}

TEST_F(OutputTest, FailuresLeaveNoTraces) {
    write("out/chart.png", "before");
    const std::string good = write("good", GridText{}.text());
    std::filesystem::create_directory(path("out/folder.png"));
    expectReplies({"chart"},
                  {{{write("bad", "diamond 4 T 1"), "-o", path("out/chart.png")}, 1, "its header"},
                   {{good, "-o", path("none/chart.png")},
                    1,
                    good + ": the output " + path("none/chart.png") + " cannot be written: No such"},
                   {{good, "-o", path("out/folder.png")}, 1, "Is a directory"}});
    EXPECT_EQ(readFile(path("out/chart.png")), "before");
    // More than there is room for: a little is written only when the file is closed, much at once.
    for (const char* interval : {"--interval=5", "--interval=1"}) {
        const Answer full = run({"contour", good, interval, "-o", path("out/l.csv")}, {}, "ulimit -f 1; {}");
        EXPECT_EQ(full.exitCode, 1);
        EXPECT_THAT(full.err, HasSubstr("cannot be written: File too large"));
    }
    EXPECT_THAT(filesIn("out"), ElementsAre("chart.png", "folder.png"));
}

TEST_F(OutputTest, LinksAndPipesStayWhatTheyAre) {
    const std::string good = write("good", GridText{}.text());
    write("real.csv", "before");
    std::filesystem::create_symlink(path("real.csv"), path("link.csv"));
    outOf({"contour", good, "-o", path("link.csv")});
    EXPECT_TRUE(std::filesystem::is_symlink(path("link.csv")));
    EXPECT_THAT(readFile(path("real.csv")), StartsWith("line,value"));
    ASSERT_EQ(mkfifo(path("pipe.csv").c_str(), 0600), 0);
    const int reader = open(path("pipe.csv").c_str(), O_RDWR | O_CLOEXEC);
    outOf({"contour", good, "-o", path("pipe.csv")});
    close(reader);
    EXPECT_TRUE(std::filesystem::is_fifo(path("pipe.csv")));
}

TEST_F(OutputTest, RefusesWrongUsageInWords) {
    const std::string good = write("good", GridText{}.text());
    const std::string chart = path("c.png");
    expectReplies({}, {{{}, 2, "A subcommand is required"},
                       {{"chart", good}, 2, "say either -o FILE or --out-dir FOLDER"},
                       {{"chart", good, "-o", chart, "--out-dir", path("")}, 2, "say either"},
                       {{"chart", good, good, "-o", chart}, 2, "it takes one input"},
                       {{"chart", good, "-o", path("c.gif")}, 2, "should end in .png, .svg, .pdf"},
                       {{"contour", good, "-o", chart}, 2, "should end in .geojson, .csv"},
                       {{"chart", good, "-o", chart, "--format", "svg"}, 2, "is not the ending"},
                       {{"chart", good, "--out-dir", good}, 2, "cannot be made"},
                       {{"info", good, "-j", "0"}, 2, "-j"}});
    expectReplies({"chart", good, "-o", chart},
                  {{{"--bounds", "1,2,3"}, 2, "four numbers"},
                   {{"--bounds", "nan,10,0,10"}, 2, "not a list of numbers"},
                   {{"--bounds", "10,10,0,10"}, 2, "west must be less than east"},
                   {{"--bounds", "0,10,20,10"}, 2, "south must be less than north"},
                   {{"--bounds", "0,361,0,10"}, 2, "more than a circle"},
                   {{"--bounds", "0,10,0,100"}, 2, "between -90 and 90"},
                   {{"--size", "800"}, 2, "not of the form 1400x900"},
                   {{"--size", "800x-600"}, 2, "is not between"},
                   {{"--size", "800x239"}, 2, "is not between"},
                   {{"--size", "99999999999x600"}, 2, "not of the form"}});
    EXPECT_FALSE(std::filesystem::exists(chart));
    expectReplies({"contour", good, "-o", "-"},
                  {{{"--levels", "1,,2"}, 2, "not a list of numbers"},
                   {{"--levels", "1e39"}, 2, "not a list of numbers"},
                   {{"--interval", "-5"}, 2, "not one number above 0"},
                   {{"--auto", "0"}, 2, "not in range 1 to 200"},
                   {{"--auto", "5", "--interval", "5"}, 2, "excludes"},
                   {{"--interval", "0.001"}, 1, "more than 1000 levels between 100 and 110"}});
}

TEST_F(OutputTest, HelpAndVersionAreNoFailures) {
    EXPECT_THAT(outOf({"--help"}), HasSubstr("streamlines"));
    EXPECT_THAT(outOf({"chart", "--help"}), HasSubstr("--bounds"));
    EXPECT_THAT(outOf({"--version"}), testing::MatchesRegex("velmar [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

}  // namespace
