#include "common/text.h"

#include <fmt/chrono.h>
#include <fmt/format.h>
#include <iconv.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <new>

namespace velmar::tool {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

bool isControl(char c) { return (c >= 0 && c < ' ') || c == 0x7F; }

std::string replaceControls(const std::string& text) {
    std::string clean;
    for (const char c : text) {
        if (isControl(c))
            clean += replacement;
        else
            clean += c;
    }
    return clean;
}

struct Converter {
    // GB18030 holds all of GBK and goes on where GBK leaves off.
    iconv_t handle = iconv_open("UTF-8", "GB18030");
    Converter() {
        if (reinterpret_cast<std::intptr_t>(handle) == -1) throw std::bad_alloc();
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() { iconv_close(handle); }
};

std::optional<std::chrono::sys_time<std::chrono::minutes>> startTime(const files::FieldHeader& header) {
    const int year = fullYear(header.year);
    if (year < 1 || year > 9999 || header.month < 1 || header.day < 1) return std::nullopt;
    if (header.hour < 0 || header.hour > 24) return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year{year},
                                           std::chrono::month{static_cast<unsigned>(header.month)},
                                           std::chrono::day{static_cast<unsigned>(header.day)}};
    if (header.month > 12 || header.day > 31 || !date.ok()) return std::nullopt;
    return std::chrono::sys_days{date} + std::chrono::hours{header.hour};
}

std::string timeText(std::chrono::sys_time<std::chrono::minutes> time) {
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date{day};
    return fmt::format("{:04}-{:02}-{:02} {:02}:00", static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                       std::chrono::duration_cast<std::chrono::hours>(time - day).count());
}

}  // namespace

std::string gbkToUtf8(std::string_view text) {
    const Converter converter;
    std::string bytes(text);
    std::string result;
    char* in = bytes.data();
    std::size_t inLeft = bytes.size();
    while (inLeft > 0) {
        char buffer[512];
        char* out = buffer;
        std::size_t outLeft = sizeof buffer;
        const std::size_t converted = iconv(converter.handle, &in, &inLeft, &out, &outLeft);
        result.append(buffer, out);
        // With room left in the buffer the conversion stopped at bytes that are no character.
        if (converted == static_cast<std::size_t>(-1) && outLeft >= 8 && inLeft > 0) {
            result += replacement;
            ++in;
            --inLeft;
        }
    }
    return replaceControls(result);
}

std::string plainNumber(double value) {
    // Adding zero turns -0 into 0.
    return fmt::format("{:.6g}", value + 0.0);
}

double writtenNumber(float value) {
    char digits[64];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    double number = value;
    std::from_chars(digits, end, number);
    return number;
}

std::string longitudeText(double degrees) {
    const double longitude = std::remainder(degrees, 360.0);
    const double size = std::fabs(longitude);
    if (size < 1e-6 || size > 180 - 1e-6) return plainNumber(size) + "°";
    return plainNumber(size) + (longitude < 0 ? "°W" : "°E");
}

std::string latitudeText(double degrees) {
    if (std::fabs(degrees) < 1e-6) return "0°";
    return plainNumber(std::fabs(degrees)) + (degrees < 0 ? "°S" : "°N");
}

std::string placedText(const PlacedValue& place) {
    return fmt::format("{} at {} {}", plainNumber(place.value), latitudeText(place.latitude),
                       longitudeText(place.longitude));
}

int fullYear(int year) {
    constexpr int firstOfLastCentury = 50;
    if (year < 0 || year > 99) return year;
    return year < firstOfLastCentury ? 2000 + year : 1900 + year;
}

std::string startTimeText(const files::FieldHeader& header) {
    if (const auto time = startTime(header)) return timeText(*time);
    return fmt::format("{}-{}-{} {} h", header.year, header.month, header.day, header.hour);
}

std::optional<std::string> validTimeText(const files::FieldHeader& header) {
    constexpr int longestForecast = 100000;
    const auto time = startTime(header);
    if (!time || header.forecastHour < 0 || header.forecastHour > longestForecast) return std::nullopt;
    return timeText(*time + std::chrono::hours{header.forecastHour});
}

std::string levelText(int level) {
    constexpr int highestPressure = 1100;
    if (level == 0) return "";
    if (level > 0 && level <= highestPressure) return fmt::format("{} hPa", level);
    return fmt::format("level {}", level);
}

}  // namespace velmar::tool
