#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "program.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;

class InfoTest : public ProgramTest {};

TEST_F(InfoTest, TellsAGridInFull) {
    const json info = json::parse(run({"info", "--json", sample("grids/h500_global.000")}).out);
    EXPECT_EQ(info["type"], 4);
    EXPECT_EQ(info["title"], "11年10月08日00时072时效500百帕高度场");
    EXPECT_EQ(info["start"], "2011-10-08 00:00");
    EXPECT_EQ(info["valid"], "2011-10-11 00:00");
    EXPECT_EQ(info["level"], 500);
    EXPECT_EQ(info["longitudes"]["count"], 144);
    EXPECT_EQ(info["latitudes"]["step"], -2.5);
    EXPECT_EQ(info["values"], 144 * 73);
    EXPECT_EQ(info["missing"], 0);
    EXPECT_EQ(info["largest"]["value"], 592.8);
    EXPECT_EQ(info["largest"]["latitude"], 25);
    EXPECT_EQ(info["contours"]["bold"], 588);
}

TEST_F(InfoTest, LeavesMissingValuesOutOfTheExtremes) {
    const json soil = json::parse(run({"info", "--json", sample("grids/soilt_global_missing.000")}).out);
    EXPECT_EQ(soil["missing"], 6919);
    EXPECT_EQ(soil["largest"]["value"], 38.5);
    EXPECT_EQ(soil["smallest"]["value"], -55.5);

    GridText nothing;
    nothing.value = [](double, double) { return 9999; };
    const json empty = json::parse(run({"info", "--json", write("empty", nothing.text())}).out);
    EXPECT_EQ(empty["missing"], 121);
    EXPECT_FALSE(empty.contains("smallest"));
}

TEST_F(InfoTest, TellsWhatIsInFilesOfLines) {
    const std::string boundary =
        write("b", "diamond 778 \xCB\xB9\xC0\xEF\xC0\xBC\xBF\xA8\n2 1 0\n1 2 3 4 2 79 6 82 9");
    const Answer several =
        run({"info", boundary, sample("lines/map_africa.009"), sample("regions/us_states.dat")});
    EXPECT_EQ(several.exitCode, 0);
    EXPECT_THAT(several.out, HasSubstr("boundary line (diamond 778)\n  title       斯里兰卡\n"
                                       "  lines       1, 2 points\n  longitudes  79 to 82\n"));
    EXPECT_THAT(several.out, HasSubstr("map lines (diamond 9)\n  lines       65, 2947 points\n"));
    EXPECT_THAT(several.out, HasSubstr("  names       "));
    const json world = json::parse(run({"info", "--json", sample("lines/map_world.009")}).out);
    EXPECT_EQ(world["title"], "WORLD110");
    EXPECT_EQ(world["lines"], 595);
    EXPECT_EQ(world["points"], 8246);
    const Answer cut = run({"info", write("m", "March 9 a 0 0 0 0 0 0 0 0 0 0 1 1 1 0 0 0 a b 5 6 2 1 1")});
    EXPECT_THAT(cut.err, HasSubstr("the file breaks off: 1 lines of it can be read"));
}

TEST_F(InfoTest, AnswersInValidJsonWhateverTheFilesHold) {
    GridText odd;
    odd.title = "\xFF\x80\x1B[31m\xC4";
    odd.times = "0 13 45 99 -7 0";
    odd.hints = "nan inf -inf 0 1e40";
    const std::string grid = write("na\xFFme", odd.text());
    const Answer one = run({"info", "--json", grid});
    EXPECT_EQ(one.exitCode, 0);
    EXPECT_EQ(json::parse(one.out)["title"], "���[31m�");
    EXPECT_EQ(json::parse(one.out)["start"], "0-13-45 99 h");

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
    for (const auto& [text, sentence] : files) {
        const Answer result = run({"info", write("f", text)});
        EXPECT_EQ(result.exitCode, 1) << text;
        EXPECT_THAT(result.err, HasSubstr("velmar: " + path("f") + ": " + sentence)) << text;
        EXPECT_EQ(result.out, "");
    }
    EXPECT_THAT(run({"info", path("")}).err, HasSubstr("it is a folder, not a file"));
}

}  // namespace
