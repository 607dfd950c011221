#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace velmar::base {

/// Truncates toward zero. What does not fit saturates at the ends of int; not-a-number gives 0.
inline int truncateToInt(double value) {
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    if (std::isnan(value)) return 0;
    if (value <= lowest) return std::numeric_limits<int>::min();
    if (value >= highest) return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}

/// The longest text of a number with a few decimals: the largest double has 309 digits before the point.
inline constexpr std::size_t longestRealText = 320;

/// Writes a number as `%.2f` does (with 2 as the number of decimals) in the "C" locale, whatever locale the process
/// has; returns the end of the text.
template <int decimals>
char* writeReal(char* begin, char* end, double value) {
    static_assert(0 <= decimals && decimals <= 6);
    constexpr std::array<std::uint64_t, 7> powersOfTen{1, 10, 100, 1'000, 10'000, 100'000, 1'000'000};
    constexpr std::uint64_t scale = powersOfTen[decimals];
    // The product of a single and at most a million is exact in double, and adding the smallest double
    // without fraction rounds it as it should be: to nearest, half to even.
    constexpr double whole = 4503599627370496.0;  // 2^52
    const double scaled = std::fabs(value) * static_cast<double>(scale);
    if (!(scaled < whole) || static_cast<float>(value) != value)
        return std::to_chars(begin, end, value, std::chars_format::fixed, decimals).ptr;
    const auto rounded = static_cast<std::uint64_t>((scaled + whole) - whole);
    if (std::signbit(value)) *begin++ = '-';
    char* next = std::to_chars(begin, end, rounded / scale).ptr;
    if constexpr (decimals == 0) return next;
    *next++ = '.';
    const std::uint64_t leadingOne = scale + rounded % scale;
    std::array<char, decimals + 1> digits;
    std::to_chars(digits.data(), digits.data() + digits.size(), leadingOne);
    return std::copy(digits.begin() + 1, digits.end(), next);
}

}  // namespace velmar::base
