#include "frame/progress.h"

#include <array>
#include <charconv>
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

void print(std::string_view text) {
    for (const char c : text) {
        if (state.used == state.texts.size()) flushProgress();
        state.texts[state.used++] = c;
    }
}

}  // namespace

void ProgressArgument::print() const {
    if (kind_ == Kind::text) return frame::print(text_);
    std::array<char, 512> digits;  // the largest double has 309 digits before the point
    char* const end = digits.data() + digits.size();
    const std::to_chars_result result =
        kind_ == Kind::integer ? std::to_chars(digits.data(), end, integer_)
                               : std::to_chars(digits.data(), end, real_, std::chars_format::fixed, 6);
    frame::print({digits.data(), result.ptr});
}

void progress(const char* format, std::initializer_list<ProgressArgument> values) noexcept {
#if VELMAR_PROGRESS
    if (state.silenced) return;
    std::string_view rest = format;
    for (const ProgressArgument& value : values) {
        const std::size_t conversion = rest.find('%');
        print(rest.substr(0, conversion));
        value.print();
        rest.remove_prefix(conversion + 2);
    }
    print(rest);
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
