#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "program.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

class RegionTest : public ProgramTest {};

TEST_F(RegionTest, NamesTheRegionsOfPlaces) {
    const std::string states = sample("regions/us_states.dat");
    EXPECT_EQ(run({"region", states, "--at=-104.99,39.74", "--at", "255.01,39.74", "--at", "0,0"}).out,
              "Colorado\nColorado\n(no region)\n");
    const json answer =
        json::parse(run({"region", sample("regions/africa_gbk.dat"), "--at", "28.3,-29.5", "--json"}).out);
    EXPECT_EQ(answer[0]["region"], "莱索托");
    EXPECT_EQ(answer[0]["latitude"], -29.5);
}

TEST_F(RegionTest, ListsWhatThereIs) {
    const std::string file = write("r", "diamond 10 x\n1 2 A 3 0 0 5 5 0 5\n3 4 \xC4\xCF 0\n5 6 C 2 1 1");
    const Answer answer = run({"region", file, "--list"});
    EXPECT_EQ(answer.out, "A  3 points, 0 to 5, 0 to 5\n南  0 points, nowhere\nC  1 points, nowhere\n");
    EXPECT_THAT(answer.err, HasSubstr("the file breaks off in region 3"));
    EXPECT_EQ(answer.exitCode, 0);
    EXPECT_EQ(json::parse(run({"region", file, "--json"}).out)[0]["bounds"], json({0, 5, 0, 5}));
}

TEST_F(RegionTest, SaysInWordsWhatIsWrong) {
    EXPECT_THAT(run({"region", sample("grids/h500_global.000"), "--list"}).err,
                HasSubstr("it holds no regions"));
    EXPECT_EQ(run({"region", write("e", "diamond 10 x\n"), "--list"}).exitCode, 1);
    EXPECT_EQ(run({"region", sample("regions/us_states.dat"), "--at", "5"}).exitCode, 2);
    EXPECT_EQ(run({"region", sample("regions/us_states.dat"), "--at", "5,6", "--list"}).exitCode, 2);
}

}  // namespace
