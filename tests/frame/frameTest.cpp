#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>
#include <random>
#include <vector>

#include "base/numbers.h"
#include "capi/barrier.h"
#include "files/diagnosticFile.h"
#include "grid/extremes.h"
#include "support/ownFolder.h"
#include "support/said.h"
#include "velmarBaseA.h"

#if defined(_WIN32)
#include <objbase.h>
constexpr auto marshalledArray = CoTaskMemAlloc;
constexpr auto freeMarshalledArray = CoTaskMemFree;
#else
constexpr auto marshalledArray = std::malloc;
constexpr auto freeMarshalledArray = std::free;
#endif

namespace {

using namespace velmar;
using namespace velmar::base;
using namespace velmar::capi;
using files::openDiagnosticFile;
using grid::Extremes;
using grid::extremesOf;

TEST(Probes, SumAndChangeIntegers) {
    int stored = 0;
    EXPECT_EQ(mySum(INT_MAX, 1, &stored), INT_MIN);
    EXPECT_EQ(stored, INT_MIN);
    EXPECT_EQ(mySum(2, 3, nullptr), 5);

    std::vector<int> values{1, 2, 3};
    EXPECT_EQ(TestArrayOfInts(values.data(), 0), 0);
    EXPECT_EQ(TestArrayOfInts(values.data(), -1), 0);
    EXPECT_EQ(values, (std::vector{1, 2, 3}));
    EXPECT_EQ(TestArrayOfInts(values.data(), 3), 6);
    EXPECT_EQ(values, (std::vector{101, 102, 103}));
    EXPECT_EQ(TestArrayOfInts(nullptr, 3), 0);
}

TEST(Probes, ReplaceAnArrayByFiveElementsWhateverItsCount) {
    for (const auto& [count, sum] : {std::pair{5, 15}, {2, 3}, {0, 0}, {-1, 0}}) {
        auto* array = static_cast<int*>(marshalledArray(5 * sizeof(int)));
        for (int k = 0; k < 5; ++k) array[k] = k + 1;
        int newCount = count;
        EXPECT_EQ(TestRefArrayOfInts(&array, &newCount), sum);
        EXPECT_EQ(newCount, 5);
        EXPECT_EQ(std::vector<int>(array, array + 5), (std::vector{101, 102, 103, 104, 105}));
        freeMarshalledArray(array);
    }
    EXPECT_EQ(TestRefArrayOfInts(nullptr, nullptr), 0);
}

TEST(Release, TakesNull) {
    freecPointer(nullptr);
    cntrFreeLineVar(nullptr);
    cntrShadFreeLineVar(nullptr);
}

TEST(Barrier, TurnsExceptionsIntoFailures) {
    EXPECT_EQ(guarded(7, []() -> int { throw std::bad_alloc(); }), 7);
    EXPECT_EQ(guarded(7, [] { return 8; }), 8);
    const ResultBlock block(guardedReader(-7, []() -> Outcome<ResultBlock> { throw std::bad_alloc(); }));
    EXPECT_EQ(block[0], -7);
    EXPECT_THROW(allocateFloats(std::numeric_limits<std::size_t>::max() / 2), std::bad_alloc);
}

using DiagnosticFile = velmar::test::InOwnFolder;

TEST_F(DiagnosticFile, IsWrittenOverNothingElse) {
    namespace fs = std::filesystem;
    std::ofstream("kept") << "data";
    EXPECT_EQ(openDiagnosticFile("kept", "./kept"), nullptr) << "the file that is being read";
    fs::create_hard_link("kept", "link");
    EXPECT_EQ(openDiagnosticFile("link"), nullptr);
    fs::remove("link");
    for (const char* target : {"kept", "nothing"}) {
        std::error_code notAllowed;  // as for most users of Windows
        fs::create_symlink(target, "link", notAllowed);
        if (!notAllowed) {
            EXPECT_EQ(openDiagnosticFile("link"), nullptr) << target;
        }
        fs::remove("link");
    }
    EXPECT_FALSE(fs::exists("nothing"));
    EXPECT_EQ(velmar::test::textOf("kept"), "data");
    EXPECT_NE(openDiagnosticFile("kept", "nothing"), nullptr);
    EXPECT_EQ(velmar::test::textOf("kept"), "") << "it begins anew";
}

TEST(Numbers, TruncateAndSaturate) {
    EXPECT_EQ(truncateToInt(2.9), 2);
    EXPECT_EQ(truncateToInt(-2.9), -2);
    EXPECT_EQ(truncateToInt(2147483647.5), INT_MAX);
    EXPECT_EQ(truncateToInt(-1e30), INT_MIN);
    EXPECT_EQ(truncateToInt(std::numeric_limits<double>::infinity()), INT_MAX);
    EXPECT_EQ(truncateToInt(std::nan("")), 0);
}

TEST(ExtremesOf, AreThoseOfAWalk) {
    std::mt19937 random(1);
    const std::vector<float> stock{0.0F, -0.0F, 1, -1, 2, 9999, -3e36F, 3e36F, std::nanf(""), 0.5F};
    for (int round = 0; round < 2000; ++round) {
        std::vector<float> values(random() % 150);
        const std::size_t kinds = 1 + random() % stock.size();
        for (float& value : values) value = stock[random() % kinds];
        Extremes expected;
        for (const float value : values) {
            if (value == 9999) continue;
            if (value > expected.largest) expected.largest = value;
            if (value < expected.smallest) expected.smallest = value;
        }
        const Extremes found = extremesOf(values, 9999);
        EXPECT_EQ(std::bit_cast<unsigned>(found.largest), std::bit_cast<unsigned>(expected.largest));
        EXPECT_EQ(std::bit_cast<unsigned>(found.smallest), std::bit_cast<unsigned>(expected.smallest));
    }
}

TEST(Progress, IsWrittenWhenACallEndsUnlessSwitchedOff) {
    velmar::test::CapturedOutput output;
    progress("%d|%f|%s $f\n", {-3, 0.25, std::string_view("text")});
    progress("%f %f\n", {-1e36, std::numeric_limits<double>::infinity()});
    progress("plain\n");
    setProgressEnabled(false);
    progress("silent\n");
    setProgressEnabled(true);
    flushProgress();
    EXPECT_EQ(output.text(),
              "-3|0.250000|text $f\n-1000000000000000042420637374017961984.000000 inf\nplain\n");

    velmar::test::CapturedOutput longOutput;
    const std::string line(1000, 'x');
    for (int k = 0; k < 100; ++k) progress("%s", {std::string_view(line)});
    flushProgress();
    EXPECT_EQ(longOutput.text(), std::string(100000, 'x'));
}

}  // namespace
