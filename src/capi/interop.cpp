#include <cstddef>
#include <cstdlib>
#include <span>

#include "base/floats.h"
#include "velmarBaseA.h"

#if defined(_WIN32)
#include <objbase.h>
#endif

namespace {

int wrappingSum(int a, int b) {
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}

int wrappingSum(std::span<const int> values) {
    int sum = 0;
    for (const int value : values) sum = wrappingSum(sum, value);
    return sum;
}

std::span<int> firstOf(int* values, int count) {
    return {values, count < 1 ? std::size_t{0} : static_cast<std::size_t>(count)};
}

/// The allocator that managed runtimes use for arrays passed by reference.
struct MarshallingAllocator {
#if defined(_WIN32)
    static void* allocate(std::size_t bytes) { return CoTaskMemAlloc(bytes); }
    static void release(void* array) { CoTaskMemFree(array); }
#else
    static void* allocate(std::size_t bytes) { return std::malloc(bytes); }
    static void release(void* array) { std::free(array); }
#endif
};

}  // namespace

void freecPointer(void* block) noexcept { velmar::base::releaseFloats(block); }
void cntrFreeLineVar(void* block) noexcept { velmar::base::releaseFloats(block); }
void cntrShadFreeLineVar(void* block) noexcept { velmar::base::releaseFloats(block); }

int mySum(int a, int b, int* sum) noexcept {
    const int result = wrappingSum(a, b);
    if (sum != nullptr) *sum = result;
    return result;
}

int TestArrayOfInts(int* values, int count) noexcept {
    if (values == nullptr) return 0;
    const std::span<int> array = firstOf(values, count);
    const int sum = wrappingSum(array);
    for (int& value : array) value = wrappingSum(value, 100);
    return sum;
}

int TestRefArrayOfInts(int** values, int* count) noexcept {
    constexpr int newCount = 5;
    if (values == nullptr || *values == nullptr || count == nullptr) return 0;
    auto* const replacement = static_cast<int*>(MarshallingAllocator::allocate(newCount * sizeof(int)));
    if (replacement == nullptr) return 0;
    const int sum = wrappingSum(firstOf(*values, *count));
    // Five elements are read whatever the count: what the host's marshalling hands over is an array of five.
    for (int k = 0; k < newCount; ++k) replacement[k] = wrappingSum((*values)[k], 100);
    MarshallingAllocator::release(*values);
    *values = replacement;
    *count = newCount;
    return sum;
}
