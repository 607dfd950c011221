#pragma once

#include <clocale>
#include <locale>
#include <string>

namespace velmar::test {

/// The locale of the C library and that of C++ streams are the plain ones while this is there: for what a test itself
/// makes of numbers, or compares with.
class PlainLocale {
public:
    PlainLocale() { std::locale::global(std::locale::classic()); }
    ~PlainLocale() {
        std::locale::global(formerOfStreams_);
        std::setlocale(LC_ALL, former_.c_str());
    }
    PlainLocale(const PlainLocale&) = delete;
    PlainLocale& operator=(const PlainLocale&) = delete;

private:
    std::string former_ = std::setlocale(LC_ALL, nullptr);
    std::locale formerOfStreams_;
};

}  // namespace velmar::test
