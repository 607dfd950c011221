#include "cli/arguments.h"
#include "cli/command.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>

namespace velmar::tool {

std::vector<double> parseNumbers(const std::string& option, const std::string& text) {
    std::vector<double> numbers;
    const char* next = text.data();
    const char* const end = next + text.size();
    while (true) {
        double value = 0;
        const auto [behind, error] = std::from_chars(next, end, value);
        if (error != std::errc{} || !std::isfinite(static_cast<float>(value)) ||
            (behind != end && *behind != ','))
            throw UsageError(option, fmt::format("\"{}\" is not a list of numbers", text));
        numbers.push_back(value);
        if (behind == end) return numbers;
        next = behind + 1;
    }
}

base::LonLat parsePlace(const std::string& option, const std::string& text) {
    const std::vector<double> numbers = parseNumbers(option, text);
    if (numbers.size() != 2)
        throw UsageError(option, fmt::format("\"{}\": a longitude and a latitude are expected", text));
    return {static_cast<float>(numbers[0]), static_cast<float>(numbers[1])};
}

}  // namespace velmar::tool
