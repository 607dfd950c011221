#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <limits>
#include <new>
#include <vector>

#include "capi/barrier.h"
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

using namespace velmar::base;
using namespace velmar::capi;

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

}  // namespace
