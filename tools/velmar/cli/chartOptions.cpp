#include "cli/chartOptions.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>

#include "cli/arguments.h"
#include "cli/reporter.h"
#include "common/text.h"

namespace velmar::tool {
namespace {

PaperSize parseSize(const std::string& text) {
    constexpr int leastWidth = 300;
    constexpr int leastHeight = 240;
    constexpr int most = 10000;
    int width = 0;
    int height = 0;
    const char* const end = text.data() + text.size();
    const auto first = std::from_chars(text.data(), end, width);
    const bool hasCross = first.ec == std::errc{} && first.ptr != end && *first.ptr == 'x';
    const auto second = hasCross ? std::from_chars(first.ptr + 1, end, height) : first;
    if (!hasCross || second.ec != std::errc{} || second.ptr != end)
        throw CLI::ValidationError("--size", fmt::format("\"{}\" is not of the form 1400x900", text));
    if (width < leastWidth || width > most || height < leastHeight || height > most)
        throw CLI::ValidationError("--size", fmt::format("{} is not between {}x{} and {}x{}", text,
                                                         leastWidth, leastHeight, most, most));
    return {static_cast<double>(width), static_cast<double>(height)};
}

std::optional<WindQuantity> quantityNamed(const std::string& word) {
    constexpr std::array quantities{WindQuantity::speed, WindQuantity::divergence, WindQuantity::vorticity};
    const auto* const quantity = std::ranges::find(quantities, word, quantityName);
    return quantity == quantities.end() ? std::nullopt : std::optional(*quantity);
}

void addCenters(CLI::App& command, ChartOptions& chart) {
    command.add_flag("--centers,!--no-centers", chart.centers,
                     "Mark the centres of highs and lows (default: yes)");
}

LineMap readMap(const std::string& path) {
    try {
        LineMap map = readLineMap(readFileHead(path));
        tellUser(path, map.notice);
        return map;
    } catch (const Problem& problem) {
        throw CLI::ValidationError("--map", fmt::format("{}: {}", path, problem.what()));
    }
}

}  // namespace

GeoBox parseBounds(const std::string& text) {
    const auto numbers = parseNumbers("--bounds", text);
    const auto refuse = [&](const char* reason) {
        throw CLI::ValidationError("--bounds", fmt::format("\"{}\": {}", text, reason));
    };
    if (numbers.size() != 4) refuse("four numbers are expected: west,east,south,north");
    const GeoBox bounds{numbers[0], numbers[1], numbers[2], numbers[3]};
    if (bounds.west < -360 || bounds.east > 720) refuse("longitudes lie between -360 and 720");
    if (bounds.south < -90 || bounds.north > 90) refuse("latitudes lie between -90 and 90");
    if (bounds.west >= bounds.east) refuse("west must be less than east; across the date line say 170,190");
    if (bounds.east - bounds.west > 360) refuse("it is more than a circle");
    if (bounds.south >= bounds.north) refuse("south must be less than north");
    constexpr double least = 0.1 - 1e-9;
    if (bounds.east - bounds.west < least || bounds.north - bounds.south < least)
        refuse("it is less than 0.1 degrees wide or high");
    return bounds;
}

void addSizeOption(CLI::App& command, ChartOptions& chart) {
    command.add_option_function<std::string>(
        "--size", [&chart](const std::string& text) { chart.size = parseSize(text); },
        "Size of the sheet as WIDTHxHEIGHT, in pixels or, for svg and pdf, points");
}

void addMapOption(CLI::App& command, ChartOptions& chart, OutputOptions& output) {
    command
        .add_option_function<std::vector<std::string>>(
            "--map",
            [&chart, &output](const std::vector<std::string>& paths) {
                output.furtherInputs = paths;
                for (const std::string& path : paths) chart.maps.push_back(readMap(path));
            },
            "A file of coasts, borders or regions to be drawn on the chart (diamond 9, 10, 777, 778, 780 or "
            "March 9); may be given several times")
        ->expected(1)
        ->take_all();
}

void addSheetOptions(CLI::App& command, ChartOptions& chart, OutputOptions& output) {
    addSizeOption(command, chart);
    command.add_flag("--fill", chart.fill, "Fill the bands between the lines with colours");
    addCenters(command, chart);
    addMapOption(command, chart, output);
}

void addSheetOptions(CLI::App& command, ChartOptions& chart, OutputOptions& output,
                     std::optional<WindQuantity>& fillQuantity) {
    addSizeOption(command, chart);
    const auto take = [&chart, &fillQuantity](const std::string& value) {
        const std::string flagAlone = "true";
        chart.fill = true;
        fillQuantity = quantityNamed(value);
        return fillQuantity || value == flagAlone
                   ? std::string()
                   : fmt::format("\"{}\" is none of speed, divergence and vorticity", value);
    };
    command.add_flag("--fill")
        ->description(
            "Fill the bands between the lines with colours; those of a wind file lie under its streamlines "
            "and are of its speed, or of what is named: --fill divergence, --fill vorticity")
        ->check(take);
    addCenters(command, chart);
    addMapOption(command, chart, output);
}

std::optional<WindQuantity> takeFillQuantity(std::vector<std::string>& inputs) {
    const auto word = std::ranges::find_if(inputs, [](const std::string& input) {
        std::error_code ignored;
        return quantityNamed(input) && !std::filesystem::exists(input, ignored);
    });
    if (word == inputs.end()) return std::nullopt;
    const auto quantity = quantityNamed(*word);
    inputs.erase(word);
    if (inputs.empty()) throw CLI::RequiredError("FILE");
    return quantity;
}

}  // namespace velmar::tool
