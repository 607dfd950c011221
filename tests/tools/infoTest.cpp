
#include "program.h"

namespace {

class InfoTest : public ProgramTest {};

TEST_F(InfoTest, TellsAGridInFull) {
    expectHolds(infoOf(sample("grids/h500_global.000")),
                R"({"type": 4, "title": "11年10月08日00时072时效500百帕高度场", "start": "2011-10-08 00:00",
                    "valid": "2011-10-11 00:00", "level": 500, "longitudes": {"count": 144},
                    "latitudes": {"step": -2.5}, "values": 10512, "missing": 0,
                    "largest": {"value": 592.8, "latitude": 25}, "contours": {"bold": 588}})");
    expectHolds(infoOf(sample("grids/soilt_global_missing.000")),
                R"({"missing": 6919, "largest": {"value": 38.5}, "smallest": {"value": -55.5}})");
    const GridText nothing{.value = [](double, double) { return 9999; }};
    expectHolds(infoOf(write("empty", nothing.text())), R"({"missing": 121, "smallest": null})");
}

TEST_F(InfoTest, TellsWhatIsInFilesOfLines) {
    const std::string boundary =
        write("b", "diamond 778 \xCB\xB9\xC0\xEF\xC0\xBC\xBF\xA8\n2 1 0\n1 2 3 4 2 79 6 82 9");
    const std::string several =
        outOf({"info", boundary, sample("lines/map_africa.009"), sample("regions/us_states.dat")});
    EXPECT_THAT(several, HasSubstr("boundary line (diamond 778)\n  title       斯里兰卡\n"
                                   "  lines       1, 2 points\n  longitudes  79 to 82\n"));
    EXPECT_THAT(several, HasSubstr("map lines (diamond 9)\n  lines       65, 2947 points\n"));
    EXPECT_THAT(several, HasSubstr("  names       "));
    expectHolds(infoOf(sample("lines/map_world.009")),
                R"({"title": "WORLD110", "lines": 595, "points": 8246})");
    const std::string cut = write("m", "March 9 a 0 0 0 0 0 0 0 0 0 0 1 1 1 0 0 0 a b 5 6 2 1 1");
    expectReplies({"info", cut}, {{{}, 0, "the file breaks off: 1 lines of it can be read"}});
}

TEST_F(InfoTest, AnswersInValidJsonWhateverTheFilesHold) {
    const GridText odd{
        .title = "\xFF\x80\x1B[31m\xC4", .times = "0 13 45 99 -7 0", .hints = "nan inf -inf 0 1e40"};
    const std::string grid = write("na\xFFme", odd.text());
    expectHolds(infoOf(grid), R"({"title": "���[31m�", "start": "0-13-45 99 h"})");
    const Answer several = run({"info", "--json", grid, path("nowhere")});
    EXPECT_EQ(several.exitCode, 1);
    EXPECT_EQ(json::parse(several.out).size(), 1);
    EXPECT_THAT(several.err, HasSubstr(path("nowhere") + ": there is no such file"));
}

TEST_F(InfoTest, SaysInWordsWhatIsWrong) {
    const std::string header = "diamond 4 T 2024 1 1 0 0 500 1 1 100 110 20 30 ";
    const std::vector<std::pair<std::string, std::string>> files{
        {"", "the file is empty"},
        {"hello world 4", "it is no file of a known kind"},
        {"Diamond 4 T", "it is no file of a known kind"},
        {"diamond 99 T", "there is no kind of file with the keyword \"diamond\" and type 99"},
        {"diamond 13 T", "there is no kind of file with the keyword \"diamond\" and type 13"},
        {"diamond 4", "its first line cannot be read"},
        {"diamond 4 MY TITLE 2024", "its header cannot be read"},
        {header + "2 2 1 0 9 0 0 1 2 3", "a data value cannot be read"},
        {header + "2 2 1 0 9 0 0 1 2 x 4", "a data value cannot be read"},
        {header + "2000000000 2000000000 1 0 9 0 0 1 2 3", "a data value cannot be read"},
    };
    for (const auto& [text, sentence] : files)
        expectReplies({"info", write("f", text)}, {{{}, 1, "velmar: " + path("f") + ": " + sentence}});
    expectReplies({"info", path("")}, {{{}, 1, "it is a folder, not a file"}});
}

}  // namespace
