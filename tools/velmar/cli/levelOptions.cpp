#include "cli/levelOptions.h"

#include <fmt/format.h>

#include <algorithm>

#include "cli/arguments.h"
#include "cli/command.h"

namespace velmar::tool {
namespace {

std::vector<float> parseLevels(const std::string& text) {
    std::vector<float> levels;
    for (const double value : parseNumbers("--levels", text)) levels.push_back(static_cast<float>(value));
    std::ranges::sort(levels);
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    if (levels.size() > mostLevels)
        throw UsageError("--levels", fmt::format("more than {} levels", mostLevels));
    return levels;
}

float parseInterval(const std::string& text) {
    const auto values = parseNumbers("--interval", text);
    const auto interval = static_cast<float>(values.front());
    if (values.size() != 1 || !(interval > 0))
        throw UsageError("--interval", fmt::format("\"{}\" is not one number above 0", text));
    return interval;
}

}  // namespace

void addLevelOptions(Command& command, LevelOptions& options) {
    command.addParsedOption(
        "--levels", [&options](const std::string& text) { options.list = parseLevels(text); },
        "Levels to draw, as 500,520,540");
    command
        .addParsedOption(
            "--interval", [&options](const std::string& text) { options.interval = parseInterval(text); },
            "Draw every multiple of this number inside the data")
        .excludes("--levels");
    command
        .addOption("--auto", options.automaticCount, "Choose about so many levels from the data (1 to 200)")
        .within(1, 200)
        .excludes("--levels")
        .excludes("--interval");
}

}  // namespace velmar::tool
