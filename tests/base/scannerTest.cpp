#include "base/scanner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <cstdio>
#include <random>
#include <ranges>
#include <string>
#include <tuple>
#include <vector>

#include "support/plainLocale.h"

using velmar::base::LowerCaseWord;
using velmar::base::scan;
using velmar::base::TextScanner;

namespace {

#if defined(__GLIBC__)

std::string restOf(TextScanner in, const std::string& text) {
    return text.substr(text.size() - in.remaining());
}

/// Reads one field with the C library; returns how many converted and what it left.
template <class... Field>
int scanWithLibrary(const std::string& text, std::string& rest, const char* format, Field*... field) {
    if (text.empty()) return 0;
    const velmar::test::PlainLocale plain;
    std::FILE* file = fmemopen(const_cast<char*>(text.data()), text.size(), "r");
    const int converted = std::max(std::fscanf(file, format, field...), 0);
    rest.clear();
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) rest += static_cast<char>(c);
    std::fclose(file);
    return converted;
}

void expectAsLibrary(const std::string& text) {
    SCOPED_TRACE("text '" + text + "'");
    std::string rest;

    float expected = -7.5F;
    float value = -7.5F;
    TextScanner floats(text);
    EXPECT_EQ(scan(floats, value), scanWithLibrary(text, rest, "%f", &expected));
    if (std::isnan(expected)) {
        EXPECT_TRUE(std::isnan(value));
        EXPECT_EQ(std::signbit(value), std::signbit(expected));
    } else {
        EXPECT_EQ(std::bit_cast<unsigned>(value), std::bit_cast<unsigned>(expected))
            << value << " " << expected;
    }
    EXPECT_EQ(restOf(floats, text), rest) << "%f";

    long wide = -7;
    int whole = -7;
    TextScanner ints(text);
    EXPECT_EQ(scan(ints, whole), scanWithLibrary(text, rest, "%ld", &wide));
    EXPECT_EQ(whole, std::clamp(wide, long{INT_MIN}, long{INT_MAX}));
    EXPECT_EQ(restOf(ints, text), rest) << "%d";

    std::string buffer(text.size() + 1, '\0');
    std::string_view word;
    TextScanner words(text);
    EXPECT_EQ(scan(words, word), scanWithLibrary(text, rest, "%s", buffer.data()));
    EXPECT_EQ(std::string(word), buffer.c_str());
    EXPECT_EQ(restOf(words, text), rest) << "%s";

    std::fill(buffer.begin(), buffer.end(), '\0');
    LowerCaseWord letters;
    TextScanner sets(text);
    EXPECT_EQ(scan(sets, letters), scanWithLibrary(text, rest, " %[a-z]", buffer.data()));
    EXPECT_EQ(std::string(letters.text), buffer.c_str());
    EXPECT_EQ(restOf(sets, text), rest) << "%[a-z]";
}

TEST(Scanner, ReadsAwkwardFieldsAsTheLibraryDoes) {
    constexpr std::string_view fields =
        "0|-0|+7|519.8|.5|5.|-.5e1|1e5|1E-5|1e+05x|1e|1e+|1e+-5|1ex|1e5e|1.e2|1.5.2|..5|.|-.|.e5|e5|0x|"
        "0xg|0x.|0x.p1|0x.8|0x1p|0x1p+|0x1px|0x1.8p1.|0X1AP-3|00x1|-0x1f|0xe+1|0x1e5|nan|NaN|-nan|"
        "nan(12)z|nax1|na|nx|inf|-INF|infx|infinity|INFINITYs|infin1|in7|i|+i|+|-|--1|+-5|- 5|9999|"
        "2147483647|2147483648|-2147483648|-2147483649|99999999999|99999999999999999999|12a|1,5|1d5|"
        "3.4028235e38|3.4028236e38|-1e39|1e400|-1e400|1e-400|1e-46|7.1e-46|1e-45|1.17549429e-38|"
        "0.0000000000000000000000000000000000000000000000000001e20|1e99999999999999999999|"
        "1e-99999999999999999999|0e999999999|0x1p128|0x1p-150|0x1p-149|0x1.000001p0|0x1.0000011p0|"
        "16777217|16777219|1.00000017881393432617187499|1.00000017881393432617187500|"
        "1.00000017881393432617187501|\t\n\v\f\r 4|\xA0 5|7\xB0\xD9|abc def|Abc|abcD";
    for (const auto field : std::views::split(fields, '|'))
        expectAsLibrary(std::string(field.begin(), field.end()));
    expectAsLibrary(std::string(400, '9'));
    expectAsLibrary("0." + std::string(400, '0') + "1");
    expectAsLibrary("0." + std::string(400, '0') + "1e401");
    expectAsLibrary(std::string(400, '1') + "e-399");
    expectAsLibrary("0x" + std::string(60, '0') + "1" + std::string(60, '0') + "p-239");
}

TEST(Scanner, ReadsRandomFieldsAsTheLibraryDoes) {
    std::mt19937 random(4);
    const std::string letters = "0012345678999....++--eEeExXpPnNaAiIfFtTyY \t";
    for (int round = 0; round < 30000; ++round) {
        std::string text(1 + random() % 12, ' ');
        for (char& c : text) c = letters[random() % letters.size()];
        expectAsLibrary(text);
        if (HasFailure()) break;
    }
    for (int round = 0; round < 30000; ++round) {
        const velmar::test::PlainLocale plain;
        char text[64];
        const float value = std::bit_cast<float>(static_cast<unsigned>(random()));
        std::snprintf(text, sizeof text, round % 2 == 0 ? "%.*g" : "%.*a", static_cast<int>(random() % 12),
                      static_cast<double>(value));
        expectAsLibrary(text);
        if (HasFailure()) break;
    }
}

#endif

TEST(Scanner, CountsFieldsUpToTheFirstThatFails) {
    TextScanner in("diamond 4 \xB8\xDF\xB6\xC8 7 x 8");
    std::string_view keyword;
    std::string_view title;
    int type = 0;
    int level = 0;
    int bad = 5;
    int after = 6;
    EXPECT_EQ(scan(in, keyword, type, title, level, bad, after), 4);
    EXPECT_EQ(std::tie(keyword, title), std::tuple("diamond", "\xB8\xDF\xB6\xC8"));
    EXPECT_EQ(std::tie(type, level, bad, after), std::tuple(4, 7, 5, 6));
    TextScanner empty("");
    EXPECT_EQ(scan(empty, type), 0);
}

TEST(Scanner, RefusesOnlyCountsThatCannotFollow) {
    EXPECT_TRUE(TextScanner("1 2 3").mayHold(3));
    EXPECT_FALSE(TextScanner("1 2 3").mayHold(4));
    EXPECT_FALSE(TextScanner("").mayHold(1));
    for (const std::string text : {"1.2.3.4.5", "1-2-3-4", ".1.2.3", "0+1-2.3", "1 2\n3", "1e-e1e"}) {
        for (std::size_t first = 0; first < text.size(); ++first) {
            TextScanner in(std::string_view(text).substr(first));
            const TextScanner before = in;
            std::vector<float> values(20);
            EXPECT_TRUE(before.mayHold(in.read(values))) << text.substr(first);
        }
    }
}

}  // namespace
