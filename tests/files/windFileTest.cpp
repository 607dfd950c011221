#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "capi/state.h"
#include "support/files.h"

namespace {

using namespace velmar::test;
using namespace std::string_literals;
using velmar::capi::state;
using velmar::grid::Lattice;

std::string windText(const std::string& latitudes, const std::string& sizes, const std::string& values) {
    return "diamond 11 wind\n2011 10 08 20 72 850\n2.5 " + latitudes + "\n" + sizes + "\n" + values;
}

const std::string sixOfEach = "1 2 3\n4 5 6\n\n-1 -2 -3 -4 -5 -6";
const std::string northward = "5 60 65 10 15";  // latitude step, start and end longitude and latitude
const std::string southward = "-5 60 65 15 10";

Block read(const std::string& text) { return readWith(readVelmarData11, text); }

Block readAndDraw(const std::string& text) {
    return Block(readWindData(TemporaryFile(text).path().c_str(), 5));
}

bool isLattice(const Lattice& a, const std::vector<float>& b) {
    return std::vector{a.startLongitude, a.endLongitude, a.longitudeStep,
                       a.startLatitude,  a.endLatitude,  a.latitudeStep} == b;
}

TEST(WindFile, KeepsRowsThatRunNorthwards) {
    const Block block = read(windText(northward, "3 2", sixOfEach));
    // The first element is four times the number of values, and the header: not the number of elements.
    EXPECT_EQ(elements(block, 15),
              (std::vector<float>{63, 2011, 10, 8, 20, 72, 850, 2.5F, 5, 60, 65, 10, 15, 3, 2}));
    EXPECT_EQ(elements(block, 12, 15), (std::vector<float>{1, 2, 3, 4, 5, 6, -1, -2, -3, -4, -5, -6}));
}

TEST(WindFile, TurnsRowsThatRunSouthwards) {
    const Block block = read(windText(southward, "3 2", sixOfEach));
    EXPECT_EQ(elements(block, 6, 7), (std::vector<float>{2.5F, 5, 60, 65, 10, 15}));
    EXPECT_EQ(elements(block, 12, 15), (std::vector<float>{4, 5, 6, 1, 2, 3, -4, -5, -6, -1, -2, -3}));
    // A step of 0 counts as southwards; columns stay as they are, whatever their step.
    const Block still = read(windText("0 60 65 15 10", "3 2", sixOfEach));
    EXPECT_EQ(elements(still, 6, 7), (std::vector<float>{2.5F, 0, 60, 65, 10, 15}));
    EXPECT_EQ(elements(still, 3, 15), (std::vector<float>{4, 5, 6}));
}

TEST(WindFile, MayHaveAnyTypeNumberAndMoreBehindANulInItsKeyword) {
    for (const std::string& start : {"diamond 4"s, "diamond\0s 11"s})
        EXPECT_EQ(read(start + windText(northward, "3 2", sixOfEach).substr(10))[0], 63);
}

TEST(WindFile, FailsWithItsCodes) {
    const auto code = [](const std::string& text) {
        const float codes[] = {read(text)[0], readAndDraw(text)[0],
                               Block(readWindDivVor(TemporaryFile(text).path().c_str(), 0, nullptr, nullptr,
                                                    nullptr, nullptr, nullptr, nullptr))[0]};
        EXPECT_EQ(codes[1], codes[0]);
        EXPECT_EQ(codes[2], codes[0]);
        return codes[0];
    };
    EXPECT_EQ(code(""), -2);
    EXPECT_EQ(code("diamond 11"), -2);
    EXPECT_EQ(code("Diamond 11 wind 1"), -3);
    EXPECT_EQ(code("diamonds 11 wind 1"), -3);
    EXPECT_EQ(code("diamond 11 wind\n2011 10 08 20 72 850 2.5 5 60 65 10 15 3"), -4);
    EXPECT_EQ(code(windText(northward, "0 2", sixOfEach)), -4);
    EXPECT_EQ(code(windText(southward, "3 -2", sixOfEach)), -4);
    EXPECT_EQ(code(windText(northward, "3 2", "1 2 3 4 x")), -5);
    EXPECT_EQ(code(windText(northward, "3 2", "1 2 3 4 5 6 7 8 9 1 2")), -6);
    EXPECT_EQ(code(windText(southward, "3 2", "1 2 3 4 5")), -7);
    EXPECT_EQ(code(windText(southward, "3 2", "1 2 3 4 5 6 7 8 9 1 2")), -8);
    EXPECT_EQ(code(windText(southward, "2147483647 2147483647", sixOfEach)), -7);
    // The file holds one grid, but not two, of so many values.
    EXPECT_EQ(code(windText(northward, "10 1", "1 2 3 4 5 6 7 8 9 0")), -6);
}

TEST(WindFile, SaysWhenItCannotBeOpened) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(Block(readVelmarData11("no/such/file"))[0], -1);
    EXPECT_EQ(Block(readWindData(nullptr, 5))[0], -1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Cannot open wind data file.\nCannot open wind data file.\n");
}

TEST(WindFile, LeavesItsLatticeToTheNextAnalysis) {
    state().windLattice = {};
    ASSERT_GT(readAndDraw(windText(southward, "3 2", sixOfEach))[0], 0);
    EXPECT_TRUE(isLattice(state().windLattice, {60, 65, 2.5F, 10, 15, 5}));
    const std::vector<float> still(4, 0.0F);
    const Block drawn(
        streamAnalyse(still.data(), still.data(), nullptr, 2, 2, 0, 0, 0, 0, nullptr, nullptr, 0, 5));
    const auto end = static_cast<std::size_t>(drawn[1]);
    EXPECT_EQ(elements(drawn, 10, end), (std::vector<float>{0, -1, 2, 2, 60, 10, 65, 15, 2.5F, 5}));
    // readVelmarData11 leaves nothing.
    read(windText("-1 1 2 3 4", "3 2", sixOfEach));
    EXPECT_TRUE(isLattice(state().windLattice, {60, 65, 2.5F, 10, 15, 5}));
    // A file whose grids break off has left its bounds, but not its steps.
    readAndDraw(windText("-1 1 2 3 4", "3 2", "1 2 3"));
    EXPECT_TRUE(isLattice(state().windLattice, {1, 2, 2.5F, 4, 3, 5}));
    // A header that breaks off has left the bounds that were there.
    readAndDraw("diamond 11 wind\n2011 10 08 20 72 850 9 9 70 80 x");
    EXPECT_TRUE(isLattice(state().windLattice, {70, 80, 2.5F, 4, 3, 5}));
}

TEST(WindFile, IsDescribedButNotDifferentiatedByReadWindDivVor) {
    const TemporaryFile file(windText(southward, "3 2", sixOfEach));
    float lattice[4] = {};
    int nx = 0;
    int ny = 0;
    const Block block(
        readWindDivVor(file.path().c_str(), 1, lattice, lattice + 1, lattice + 2, lattice + 3, &nx, &ny));
    EXPECT_EQ(elements(block, 6), std::vector<float>(6, 9999.0F));
    EXPECT_EQ(std::vector(lattice, lattice + 4), (std::vector<float>{60, 10, 2.5F, 5}));
    EXPECT_EQ(nx, 3);
    EXPECT_EQ(ny, 2);
    EXPECT_TRUE(isLattice(state().windLattice, {60, 65, 2.5F, 10, 15, 5}));
    const TemporaryFile broken(windText(southward, "9 2", sixOfEach));
    EXPECT_EQ(
        Block(readWindDivVor(broken.path().c_str(), 1, lattice, nullptr, nullptr, nullptr, &nx, nullptr))[0],
        -7);
    EXPECT_EQ(lattice[0], 60);
    EXPECT_EQ(nx, 3);
}

}  // namespace
