#include "base/progress.h"

#include <array>
#include <atomic>
#include <charconv>
#include <cstdio>

#include "base/numbers.h"

namespace velmar::base {

namespace {

/// Texts on their way to standard output. Lives as long as the process; empty between calls of exports.
struct ProgressState {
    std::atomic<bool> silenced = false;  ///< read by all threads of a program that has none of this
    std::size_t used = 0;
    std::array<char, 1 << 16> texts;
};

ProgressState state;

thread_local bool isSilent = false;

/// Makes room for `count` more characters; returns where they go.
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

}  // namespace

void ProgressArgument::print() const {
    if (kind_ == Kind::text) return base::print(text_);
    char* const begin = makeRoom(longestRealText);
    char* const limit = begin + longestRealText;
    const char* const end = kind_ == Kind::integer ? std::to_chars(begin, limit, integer_).ptr
                                                   : writeReal<6>(begin, limit, real_);
    state.used += static_cast<std::size_t>(end - begin);
}

void progress(const char* format, std::initializer_list<ProgressArgument> values) noexcept {
#if VELMAR_PROGRESS
    if (!printsProgress()) return;
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

bool printsProgress() noexcept {
    return VELMAR_PROGRESS != 0 && !isSilent && !state.silenced.load(std::memory_order_relaxed);
}

void flushProgress() noexcept {
    if (state.used != 0) std::fwrite(state.texts.data(), 1, state.used, stdout);
    state.used = 0;
}

SilentThread::SilentThread(bool silent) noexcept : before_(isSilent) { isSilent = before_ || silent; }
SilentThread::~SilentThread() { isSilent = before_; }

void setProgressEnabled(bool enabled) noexcept { state.silenced.store(!enabled, std::memory_order_relaxed); }

}  // namespace velmar::base
