#include "cli/levelOptions.h"

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <algorithm>

#include "cli/arguments.h"

namespace velmar::tool {
namespace {

std::vector<float> parseLevels(const std::string& text) {
    std::vector<float> levels;
    for (const double value : parseNumbers("--levels", text)) levels.push_back(static_cast<float>(value));
    std::ranges::sort(levels);
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    if (levels.size() > mostLevels)
        throw CLI::ValidationError("--levels", fmt::format("more than {} levels", mostLevels));
    return levels;
}

float parseInterval(const std::string& text) {
    const auto values = parseNumbers("--interval", text);
    const auto interval = static_cast<float>(values.front());
    if (values.size() != 1 || !(interval > 0))
        throw CLI::ValidationError("--interval", fmt::format("\"{}\" is not one number above 0", text));
    return interval;
}

}  // namespace

void addLevelOptions(CLI::App& command, LevelOptions& options) {
    auto* list = command.add_option_function<std::string>(
        "--levels", [&options](const std::string& text) { options.list = parseLevels(text); },
        "Levels to draw, as 500,520,540");
    auto* interval = command.add_option_function<std::string>(
        "--interval", [&options](const std::string& text) { options.interval = parseInterval(text); },
        "Draw every multiple of this number inside the data");
    auto* automatic = command.add_option("--auto", options.automaticCount,
                                         "Choose about so many levels from the data (1 to 200)");
    automatic->check(CLI::Range(1, 200));
    list->excludes(interval)->excludes(automatic);
    interval->excludes(automatic);
}

}  // namespace velmar::tool
