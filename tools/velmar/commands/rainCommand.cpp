#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <filesystem>
#include <memory>

#include "chart/stationChart.h"
#include "cli/callFiles.h"
#include "cli/chartOptions.h"
#include "cli/jobs.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "compute/rainSum.h"
#include "write/rainWriter.h"

namespace velmar::tool {
namespace {

using rain::DateKey;

const std::vector<std::string> rainFormats{"txt", "csv", "geojson", gridFormat, "png", "svg", "pdf"};

constexpr const char* explanation =
    "The folder has a file of station values (diamond 3, one value a station) for each step, named\n"
    "YYMMDDHH.000. Those after --from up to --to are added up; a missing value (9999) adds nothing.\n"
    "With steps of more than an hour both times are at 2, 8, 14 or 20 h; --to may also be at 5 h, and\n"
    "--from then too. A sum with the ending 000 is a file of station values, which can be analysed.\n"
    "Without -o the table goes to standard output.";

struct RainOptions {
    OutputOptions output;
    std::string directory;
    RainPeriod span{0, 0, 1};
    ChartOptions chart;
};

/// Reads YYYYMMDDHH. Throws CLI::ValidationError unless that is an hour of the calendar.
DateKey parseTime(const std::string& option, const std::string& text) {
    constexpr std::size_t digits = 10;
    constexpr int firstYear = 1000;
    DateKey time = 0;
    const char* const end = text.data() + text.size();
    const bool isNumber =
        text.size() == digits && std::from_chars(text.data(), end, time).ptr == end && time > 0;
    const auto [year, month, day, hour] = partsOf(time);
    const std::chrono::year_month_day date{std::chrono::year{year},
                                           std::chrono::month{static_cast<unsigned>(month)},
                                           std::chrono::day{static_cast<unsigned>(day)}};
    if (!isNumber || year < firstYear || !date.ok() || hour > 23)
        throw CLI::ValidationError(
            option,
            fmt::format("\"{}\" is no time; year, month, day and hour are expected as YYYYMMDDHH", text));
    return time;
}

/// Says in advance what the library would refuse without a word.
void checkSpan(const RainPeriod& span) {
    constexpr std::array hours{2, 8, 14, 20};
    const auto isOne = [&](int hour) { return std::ranges::find(hours, hour) != hours.end(); };
    const int from = partsOf(span.from).hour;
    const int to = partsOf(span.to).hour;
    if (span.from >= span.to) throw CLI::ValidationError("--from", "it has to be before --to");
    if (span.stepHours == 1) return;
    if (!isOne(to) && to != 5)
        throw CLI::ValidationError("--to",
                                   "with steps of more than an hour it has to be at 2, 5, 8, 14 or 20 h");
    if (!isOne(from) && !(from == 5 && to == 5))
        throw CLI::ValidationError(
            "--from",
            "with steps of more than an hour it has to be at 2, 8, 14 or 20 h, or at 5 "
            "h when --to is");
}

std::string rendered(const RainSum& sum, const ChartOptions& chart, const std::string& format) {
    if (format == "txt") return rainText(sum);
    if (format == "csv") return commaSeparated(sum);
    if (format == "geojson") return geoJson(sum);
    if (format == gridFormat) return stationFileText(sum);
    const StationFile file = stationFileOf(sum);
    const StationPlot plot{.element = 1, .quantity = "rain", .wind = {}, .cloud = {}};
    return drawStationChart(file, plot, chart, format);
}

bool isNamedAsTime(const std::filesystem::path& file) {
    constexpr std::size_t digits = 8;
    const std::string name = file.stem().string();
    return file.extension() == ".000" && name.size() == digits &&
           name.find_first_not_of("0123456789") == std::string::npos;
}

/// The files of a sum, and those of other times in its folder: they are no less data.
std::vector<std::string> rainFiles(const RainSum& sum, const std::string& directory) {
    std::vector<std::string> files = sum.files;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error))
        if (isNamedAsTime(entry->path())) files.push_back(entry->path().string());
    return files;
}

int runRain(RainOptions& options) {
    checkSpan(options.span);
    options.output.inputs = {options.directory};
    if (options.output.output.empty()) options.output.output = "-";
    return runJobs(planJobs(options.output, rainFormats), 1, [&](const Job& job, Reporter& reporter) {
        const RainSum sum = sumRain(job.input, options.span);
        for (const std::string& notice : sum.notices) reporter.tell(job.input, notice);
        OutputOptions output = options.output;
        output.furtherInputs = rainFiles(sum, job.input);
        CallFiles(output).claim(job.output, job.input);
        writeOutput(job.output, rendered(sum, options.chart, job.format));
    });
}

void addTimeOption(CLI::App& command, const std::string& name, DateKey& time, const std::string& meaning) {
    command
        .add_option_function<std::string>(
            name, [name, &time](const std::string& text) { time = parseTime(name, text); }, meaning)
        ->required();
}

}  // namespace

void addRainCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<RainOptions>();
    CLI::App* command = program.add_subcommand(
        "rain", "Add up the rain of stations over a span of time, from a folder of files");
    command->add_option("DIR", options->directory, "Folder of the files")->required();
    addTimeOption(*command, "--from", options->span.from,
                  "Start as YYYYMMDDHH; the file of this time is not part of the sum");
    addTimeOption(*command, "--to", options->span.to, "End as YYYYMMDDHH, the time of the last file");
    command->add_option("--step", options->span.stepHours, "Hours from file to file, 1 to 24 (default 1)")
        ->check(CLI::Range(1, 24));
    command->add_option("-o,--output", options->output.output,
                        fmt::format("Output file, its ending one of .{}; - is standard output (default)",
                                    fmt::join(rainFormats, ", .")));
    command->add_option("--format", options->output.format, "Format for -o - (default txt)")
        ->check(CLI::IsMember(rainFormats));
    command->add_option_function<std::string>(
        "--bounds", [options](const std::string& text) { options->chart.bounds = parseBounds(text); },
        "Area of a chart as west,east,south,north in degrees (default: that of the stations)");
    addSizeOption(*command, options->chart);
    addMapOption(*command, options->chart, options->output);
    command->footer(explanation);
    command->callback([options, &exitCode] { exitCode = runRain(*options); });
}

}  // namespace velmar::tool
