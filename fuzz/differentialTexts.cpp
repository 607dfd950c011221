#include <array>
#include <fstream>
#include <sstream>
#include <string>

#include "base/numbers.h"
#include "base/progress.h"
#include "base/scanner.h"
#include "capi/state.h"
#include "regions/plainRegions.h"
#include "twins.h"

namespace velmar::fuzz {

namespace {

/// Standard output in memory as long as it lives.
class Captured {
public:
    Captured() : stdout_(stdout) {
        std::fflush(stdout);
        stdout = open_memstream(&text_, &size_);
    }
    ~Captured() {
        if (stdout != stdout_) end();
        std::free(text_);
    }
    Captured(const Captured&) = delete;
    Captured& operator=(const Captured&) = delete;

    std::string end() {
        std::fclose(stdout);
        stdout = stdout_;
        return {text_, size_};
    }

private:
    std::FILE* stdout_;
    char* text_ = nullptr;
    std::size_t size_ = 0;
};

std::vector<test::PlainRegion> someRegions(Input& in) {
    std::vector<test::PlainRegion> regions;
    for (int k = in.below(8); k > 0; --k) {
        std::vector<float> outline = in.values(2 * static_cast<std::size_t>(in.below(40)));
        for (float& degrees : outline) degrees = std::isfinite(degrees) ? std::fmod(degrees, 400.0F) : 7;
        if (outline.size() > 2 && in.oneIn(2)) outline.insert(outline.end(), {outline[0], outline[1]});
        regions.emplace_back(std::string("R").append(std::to_string(k)), outline);
    }
    return regions;
}

void load(const std::vector<test::PlainRegion>& regions) {
    std::ostringstream text;
    text.precision(9);
    text << "diamond 10 regions\n";
    for (const test::PlainRegion& region : regions) {
        text << "0 0 " << region.name << ' ' << region.points.size() / 2 << '\n';
        for (const float value : region.points) text << value << ' ';
    }
    const char* const path = "regions.dat";
    std::ofstream(path, std::ios::binary) << text.str();
    capi::state().regions.reset();
    require(readRegionData(path) == (regions.empty() ? -1 : 1), "regions are not read");
}

}  // namespace

void compareRegions(Input& in) {
    const std::vector<test::PlainRegion> regions = someRegions(in);
    load(regions);
    base::setProgressEnabled(true);
    for (int k = 0; k < 12; ++k) {
        float x = in.number(-5, 400);
        float y = in.number(-90, 90);
        if (!regions.empty() && k % 3 != 0) {
            const std::vector<float>& near = regions[static_cast<std::size_t>(k) % regions.size()].points;
            if (!near.empty()) x = near[0] + in.between(-9, 9);
            if (near.size() > 3) y = near[3];
        }
        const test::PlainFinding expected = test::plainFind(regions, x, y);
        Captured told;
        const std::string name = countyNameFromRegion(x, y);
        require(told.end() == expected.told, "crossings are not told as by the plain walk");
        require(name == expected.name, "a place is in another region than by the plain walk");
    }
}

namespace {

/// Reads one field with the C library; what it leaves goes to `rest`.
template <class... Field>
int scanWithLibrary(const std::string& text, std::size_t& rest, const char* format, Field*... field) {
    std::FILE* const file = fmemopen(const_cast<char*>(text.data()), text.size(), "r");
    require(file != nullptr, "a text can be opened");
    const int converted = std::max(std::fscanf(file, format, field...), 0);
    for (rest = 0; std::fgetc(file) != EOF;) ++rest;
    std::fclose(file);
    return converted;
}

/// A field must convert as the library's does and leave as much behind.
template <class Field, class... LibrarysField>
void readAsLibrary(const std::string& text, const char* format, Field& field, LibrarysField*... librarys) {
    std::size_t rest = 0;
    base::TextScanner in(text);
    const int converted = scan(in, field);
    require(converted == scanWithLibrary(text, rest, format, librarys...),
            "a field converts other than in the library");
    require(in.remaining() == rest, "a field leaves another rest than the library");
}

}  // namespace

void compareScanners(Input& in) {
    std::string text = in.ConsumeRandomLengthString(60);
    // A NUL ends words for the library's callers, and empty texts cannot be opened.
    std::replace(text.begin(), text.end(), '\0', ' ');
    if (text.empty()) return;

    float value = -7.5F;
    float expected = -7.5F;
    readAsLibrary(text, "%f", value, &expected);
    require(sameBits(value, expected) && std::signbit(value) == std::signbit(expected),
            "a number is another than the library's");

    int whole = -7;
    long wide = -7;
    readAsLibrary(text, "%ld", whole, &wide);
    require(whole == std::clamp(wide, long{INT_MIN}, long{INT_MAX}),
            "an integer is another than the library's");

    std::array<char, 80> buffer{};
    std::string_view word;
    readAsLibrary(text, "%s", word, buffer.data());
    require(word == buffer.data(), "a word is another than the library's");

    buffer = {};
    base::LowerCaseWord letters;
    readAsLibrary(text, " %[a-z]", letters, buffer.data());
    require(letters.text == buffer.data(), "a word of letters is another than the library's");
}

namespace {

template <int decimals>
void writeAsPrintf(double value) {
    std::array<char, base::longestRealText> text{};
    std::array<char, 400> expected{};
    const char* const end = base::writeReal<decimals>(text.data(), text.data() + text.size(), value);
    const int length = std::snprintf(expected.data(), expected.size(), "%.*f", decimals, value);
    require(std::string_view(text.data(), end) ==
                std::string_view(expected.data(), static_cast<std::size_t>(length)),
            "a number is written other than by printf");
}

}  // namespace

void compareRealTexts(Input& in) {
    const double wide = in.oneIn(2) ? in.ConsumeFloatingPoint<double>() : static_cast<double>(in.oddNumber());
    std::vector<double> numbers{wide};
    for (const float value : in.values(20)) numbers.push_back(static_cast<double>(value));
    for (const double number : numbers) {
        writeAsPrintf<0>(number);
        writeAsPrintf<1>(number);
        writeAsPrintf<2>(number);
        writeAsPrintf<6>(number);
    }
}

}  // namespace velmar::fuzz
