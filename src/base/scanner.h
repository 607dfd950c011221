#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

#include "base/points.h"

namespace velmar::base {

/// A word of the letters a to z, read as by `%[a-z]` after a blank: it ends at the first other character.
struct LowerCaseWord {
    std::string_view text;
};

/// A cursor over the text of a file. It reads as formatted scanning of the C library does, in the "C" locale
/// whatever locale the process has: white space before a field is skipped, a field ends where no further
/// character can belong to it, and a field that does not convert leaves its variable unchanged but has consumed
/// what could have begun it.
///
/// White space is that of ASCII, so that the bytes of GBK characters are never taken for blanks.
class TextScanner {
public:
    explicit TextScanner(std::string_view text) : next_(text.data()), end_(text.data() + text.size()) {}

    /// `%d`. What does not fit saturates.
    bool read(int& value);

    /// `%f`: decimal and hexadecimal numbers, inf, infinity and nan in any case of letters. What does not fit
    /// becomes infinite or zero.
    bool read(float& value);

    /// `%s`, of any length. The word is a view into the text.
    bool read(std::string_view& word);

    bool read(LowerCaseWord& word);

    /// Reads numbers until one does not convert or the span is full; returns how many.
    std::size_t read(std::span<float> values);

    /// Reads places, longitude before latitude, until a number does not convert or the span is full; returns how many.
    std::size_t read(std::span<LonLat> places);

    /// Whether the rest of the text is long enough for this many numbers: two of them take more than two characters. So
    /// a count that is wrong, by mistake or on purpose, is noticed before memory is taken for it.
    bool mayHold(std::size_t numbers) const { return numbers <= (remaining() + 1) / 2; }

    /// How many of the promised records, of a given number of numbers each, the rest of the text can hold; a negative
    /// promise counts as 0.
    std::size_t recordsAtMost(int promised, std::size_t numbersEach) const {
        const std::size_t room = (remaining() + 1) / 2 / numbersEach;
        return promised < 0 ? 0 : std::min(static_cast<std::size_t>(promised), room);
    }

    /// What has not been read.
    std::string_view rest() const { return {next_, end_}; }
    /// Leaves out so many bytes of it.
    void skip(std::size_t bytes) { next_ += bytes; }

    std::size_t remaining() const { return static_cast<std::size_t>(end_ - next_); }

private:
    void skipBlanks();
    bool skipSign();
    bool readPlain(float& value);
    bool readUnusual(float& value);
    bool readNumeral(float& value);
    bool readName(float& value);
    bool skipLetters(std::string_view lowerCase);

    const char* next_;
    const char* end_;
};

/// Reads one field per argument, by its type, up to the first that does not convert; returns how many did.
template <class... Fields>
int scan(TextScanner& in, Fields&... fields) {
    int converted = 0;
    static_cast<void>(((in.read(fields) && ++converted > 0) && ...));
    return converted;
}

}  // namespace velmar::base
