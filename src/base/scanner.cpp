#include "base/scanner.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace velmar::base {

namespace {

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
char lowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool isHexDigit(char c) { return isDigit(c) || (lowerCase(c) >= 'a' && lowerCase(c) <= 'f'); }

/// The digits of a numeral, without sign and without the 0x of a hexadecimal one.
struct Numeral {
    const char* first;
    const char* last;
    bool hexadecimal;

    char exponentLetter() const { return hexadecimal ? 'p' : 'e'; }
};

/// The end of a numeral that starts at `first`: past everything that could belong to one, including an exponent
/// letter without an exponent.
Numeral delimit(const char* first, const char* end) {
    const bool hexadecimal = end - first >= 2 && first[0] == '0' && lowerCase(first[1]) == 'x';
    Numeral numeral{hexadecimal ? first + 2 : first, end, hexadecimal};
    bool anyDigit = false;
    bool anyPoint = false;
    bool anyExponent = false;
    for (const char* at = numeral.first; at != end; ++at) {
        const char c = lowerCase(*at);
        if (isDigit(c) || (hexadecimal && !anyExponent && isHexDigit(c))) {
            anyDigit = true;
        } else if (c == '.' && !anyPoint) {
            anyPoint = true;
        } else if (c == numeral.exponentLetter() && anyDigit && !anyExponent) {
            anyPoint = anyExponent = true;
        } else if (!((c == '-' || c == '+') && anyExponent &&
                     lowerCase(at[-1]) == numeral.exponentLetter())) {
            numeral.last = at;
            break;
        }
    }
    return numeral;
}

/// Whether a numeral out of range is too large, rather than too small.
bool isLarge(const Numeral& numeral) {
    const char* const letter = std::find_if(numeral.first, numeral.last,
                                            [&](char c) { return lowerCase(c) == numeral.exponentLetter(); });
    const char* const point = std::find(numeral.first, letter, '.');
    const char* const leading =
        std::find_if(numeral.first, letter, [](char c) { return c != '0' && c != '.'; });
    // The exponent of the leading digit, in digits.
    std::int64_t exponent = point > leading ? point - leading - 1 : point - leading;
    if (letter != numeral.last) {
        int written = 0;
        TextScanner({letter + 1, numeral.last}).read(written);
        exponent += numeral.hexadecimal ? written / 4 : written;
    }
    return exponent > 0;
}

}  // namespace

void TextScanner::skipBlanks() {
    while (next_ != end_ && isBlank(*next_)) ++next_;
}

/// Skips a sign; says whether it was a minus.
bool TextScanner::skipSign() {
    if (next_ == end_ || (*next_ != '-' && *next_ != '+')) return false;
    return *next_++ == '-';
}

bool TextScanner::read(int& value) {
    skipBlanks();
    const bool negative = skipSign();
    if (next_ == end_ || !isDigit(*next_)) return false;
    constexpr std::int64_t enough = std::int64_t{1} << 32;
    std::int64_t magnitude = 0;
    for (; next_ != end_ && isDigit(*next_); ++next_)
        magnitude = std::min(magnitude * 10 + (*next_ - '0'), enough);
    constexpr std::int64_t lowest = std::numeric_limits<int>::min();
    constexpr std::int64_t highest = std::numeric_limits<int>::max();
    value = static_cast<int>(std::clamp(negative ? -magnitude : magnitude, lowest, highest));
    return true;
}

bool TextScanner::read(float& value) {
    skipBlanks();
    const bool negative = skipSign();
    float magnitude = 0.0F;
    if (!readPlain(magnitude) && !readUnusual(magnitude)) return false;
    value = negative ? -magnitude : magnitude;
    return true;
}

/// Reads a decimal numeral without exponent whose digits make a whole number that a double holds exactly. So
/// is the power of ten that it is divided by, and their quotient, rounded once more to single, is right
/// unless it lies exactly halfway between two singles.
bool TextScanner::readPlain(float& value) {
    constexpr std::ptrdiff_t digitLimit = 17;
    constexpr std::uint64_t mostExact = std::uint64_t{1} << 53U;
    constexpr std::uint64_t droppedBits = (std::uint64_t{1} << 29U) - 1;
    constexpr std::uint64_t halfWay = std::uint64_t{1} << 28U;
    constexpr std::array<double, digitLimit> powersOfTen{1e0, 1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7, 1e8,
                                                         1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16};
    const char* at = next_;
    std::uint64_t digits = 0;
    const auto takeDigits = [&] {
        const char* const first = at;
        for (; at != end_ && isDigit(*at); ++at) digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
        return at - first;
    };
    const std::ptrdiff_t whole = takeDigits();
    const bool point = at != end_ && *at == '.';
    if (point) ++at;
    const std::ptrdiff_t decimals = point ? takeDigits() : 0;
    const std::ptrdiff_t count = whole + decimals;
    if (count == 0 || count >= digitLimit || digits > mostExact || (at != end_ && !isBlank(*at)))
        return false;
    const double quotient = static_cast<double>(digits) / powersOfTen[static_cast<std::size_t>(decimals)];
    if ((std::bit_cast<std::uint64_t>(quotient) & droppedBits) == halfWay) return false;
    value = static_cast<float>(quotient);
    next_ = at;
    return true;
}

/// Reads every other number, after its sign; fails on what only begins like one.
bool TextScanner::readUnusual(float& value) {
    if (next_ == end_) return false;
    const char first = lowerCase(*next_);
    return first == 'n' || first == 'i' ? readName(value) : readNumeral(value);
}

bool TextScanner::readNumeral(float& value) {
    const Numeral numeral = delimit(next_, end_);
    next_ = numeral.last;
    if (numeral.first == numeral.last) return false;
    const auto format = numeral.hexadecimal ? std::chars_format::hex : std::chars_format::general;
    const auto [stop, error] = std::from_chars(numeral.first, numeral.last, value, format);
    if (error == std::errc::result_out_of_range) {
        value = isLarge(numeral) ? std::numeric_limits<float>::infinity() : 0.0F;
        return true;
    }
    // After 0x even a lone decimal point is enough: the 0 has been read by then.
    if (error != std::errc() && numeral.hexadecimal) value = 0.0F;
    return error == std::errc() || numeral.hexadecimal;
}

bool TextScanner::readName(float& value) {
    if (lowerCase(*next_) == 'n') {
        value = std::numeric_limits<float>::quiet_NaN();
        return skipLetters("nan");
    }
    value = std::numeric_limits<float>::infinity();
    if (!skipLetters("inf")) return false;
    return next_ == end_ || lowerCase(*next_) != 'i' || skipLetters("inity");
}

/// Skips letters that must follow. The first one that differs is consumed as well.
bool TextScanner::skipLetters(std::string_view lowerCaseLetters) {
    for (const char letter : lowerCaseLetters) {
        if (next_ == end_ || lowerCase(*next_++) != letter) return false;
    }
    return true;
}

bool TextScanner::read(std::string_view& word) {
    skipBlanks();
    const char* const first = next_;
    while (next_ != end_ && !isBlank(*next_)) ++next_;
    if (next_ == first) return false;
    word = {first, next_};
    return true;
}

bool TextScanner::read(LowerCaseWord& word) {
    skipBlanks();
    const char* const first = next_;
    while (next_ != end_ && *next_ >= 'a' && *next_ <= 'z') ++next_;
    if (next_ == first) return false;
    word.text = {first, next_};
    return true;
}

std::size_t TextScanner::read(std::span<float> values) {
    std::size_t count = 0;
    while (count != values.size() && read(values[count])) ++count;
    return count;
}

std::size_t TextScanner::read(std::span<LonLat> places) {
    std::size_t count = 0;
    while (count < places.size() && read(places[count].longitude) && read(places[count].latitude)) ++count;
    return count;
}

}  // namespace velmar::base
