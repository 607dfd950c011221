#pragma once

#include <concepts>
#include <initializer_list>
#include <string_view>

namespace velmar::base {

/// One value of a progress text.
class ProgressArgument {
public:
    ProgressArgument(std::integral auto value)
        : kind_(Kind::integer), integer_(static_cast<long long>(value)) {}
    ProgressArgument(double value) : kind_(Kind::real), real_(value) {}
    ProgressArgument(std::string_view value) : kind_(Kind::text), text_(value) {}

    /// Writes the value to the buffer of progress texts: a real number with six decimals and a decimal point,
    /// whatever the locale.
    void print() const;

private:
    enum class Kind { integer, real, text };
    Kind kind_;
    union {
        long long integer_;
        double real_;
        std::string_view text_;
    };
};

/// Prints a progress text of the catalogue to standard output, each conversion replaced by the next value.
/// Texts are collected and written when the export returns.
void progress(const char* format, std::initializer_list<ProgressArgument> values = {}) noexcept;

/// Whether this thread prints texts. Who has very many of them can ask beforehand.
bool printsProgress() noexcept;

/// Writes what has been collected.
void flushProgress() noexcept;

/// The thread that makes one prints no texts, if it is to be silent, while this is there. Others than the thread of the
/// call may not print.
class SilentThread {
public:
    explicit SilentThread(bool silent) noexcept;
    SilentThread(const SilentThread&) = delete;
    SilentThread& operator=(const SilentThread&) = delete;
    ~SilentThread();

private:
    bool before_;
};

/// Switches the texts off and on, for programs that use standard output for something else. They are on at first.
void setProgressEnabled(bool enabled) noexcept;

}  // namespace velmar::base
