#include "frame/progress.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace velmar::frame {

namespace {

/// Texts on their way to standard output. Lives as long as the process; empty between calls of exports.
struct ProgressState {
    bool silenced = false;
    std::size_t used = 0;
    std::array<char, 1 << 16> texts;
};

ProgressState state;

/// Makes room for so many more characters; returns where they go.
char* makeRoom(std::size_t count) {
    if (state.texts.size() - state.used < count) flushProgress();
    return state.texts.data() + state.used;
}

void print(char c) {
    *makeRoom(1) = c;
    ++state.used;
}

void print(std::string_view text) {
    while (!text.empty()) {
        const std::size_t count = text.copy(makeRoom(1), state.texts.size() - state.used);
        state.used += count;
        text.remove_prefix(count);
    }
}

/// Writes a number with six decimals; returns the end.
char* writeReal(char* begin, char* end, double value) {
    // The product of a single and a million is exact in double, and adding the smallest double without
    // fraction rounds it as it should be: to nearest, half to even.
    constexpr double whole = 4503599627370496.0;  // 2^52
    const double millionths = std::fabs(value) * 1e6;
    if (!(millionths < whole) || static_cast<float>(value) != value)
        return std::to_chars(begin, end, value, std::chars_format::fixed, 6).ptr;
    const auto rounded = static_cast<std::uint64_t>((millionths + whole) - whole);
    if (std::signbit(value)) *begin++ = '-';
    char* next = std::to_chars(begin, end, rounded / 1'000'000).ptr;
    *next++ = '.';
    const std::uint64_t leadingOne = 1'000'000 + rounded % 1'000'000;
    std::array<char, 7> decimals;
    std::to_chars(decimals.data(), decimals.data() + decimals.size(), leadingOne);
    return std::copy(decimals.begin() + 1, decimals.end(), next);
}

}  // namespace

void ProgressArgument::print() const {
    if (kind_ == Kind::text) return frame::print(text_);
    constexpr std::size_t longest = 320;  // the largest double has 309 digits before the point
    char* const begin = makeRoom(longest);
    const char* const end = kind_ == Kind::integer ? std::to_chars(begin, begin + longest, integer_).ptr
                                                   : writeReal(begin, begin + longest, real_);
    state.used += static_cast<std::size_t>(end - begin);
}

void progress(const char* format, std::initializer_list<ProgressArgument> values) noexcept {
#if VELMAR_PROGRESS
    if (state.silenced) return;
    const ProgressArgument* value = values.begin();
    for (const char* next = format; *next != '\0'; ++next) {
        if (*next == '%') {
            (value++)->print();
            ++next;
        } else {
            print(*next);
        }
    }
#else
    static_cast<void>(format);
    static_cast<void>(values);
#endif
}

void flushProgress() noexcept {
    if (state.used != 0) std::fwrite(state.texts.data(), 1, state.used, stdout);
    state.used = 0;
}

void setProgressEnabled(bool enabled) noexcept { state.silenced = !enabled; }

}  // namespace velmar::frame
