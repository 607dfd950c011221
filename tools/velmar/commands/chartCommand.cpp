#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <memory>

#include "cli/arguments.h"
#include "cli/chartOptions.h"
#include "cli/levelOptions.h"
#include "commands/commands.h"
#include "commands/fileUses.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{"png", "svg", "pdf"};

/// Reads the argument of --wind. Throws CLI::ValidationError.
WindElements parseWind(const std::string& text) {
    const std::vector<double> numbers = parseNumbers("--wind", text);
    const auto isField = [](double number) {
        return number >= 1 && number <= 1e6 && number == std::floor(number);
    };
    if (numbers.size() != 2 || !std::ranges::all_of(numbers, isField))
        throw CLI::ValidationError("--wind", fmt::format("\"{}\" is not two numbers of fields", text));
    return {static_cast<int>(numbers[0]), static_cast<int>(numbers[1])};
}

void addStationOptions(CLI::App& command, ChartCommandOptions& options) {
    command.add_option(
        "--field", options.field,
        "The value to be plotted at stations: the number of a field of the report, counted from "
        "1, or of a value in a file of several (default: temperature, highest temperature of a "
        "forecast, height of a list of stations, first value)");
    command.add_option_function<std::string>(
        "--wind", [&options](const std::string& text) { options.wind = parseWind(text); },
        "The fields of wind direction and speed, DIRECTION,SPEED (default: 7,8 in surface reports, 9,10 in "
        "upper-air reports, 6,7 in forecasts)");
    command.add_flag("!--no-wind", options.showsWind, "Plot stations without wind barbs");
}

int runChart(const ChartCommandOptions& options) {
    CallFiles files(options.output);
    const std::vector<Job> jobs = planJobs(options.output, formats, files);
    return runJobs(jobs, options.output.workers, [&](const Job& job, Reporter& reporter) {
        const FileHead head = readFileHead(job.input);
        if (options.station && head.kind.content != FileContent::soundings)
            reporter.tell(job.input, "it has no soundings for --station");
        usesOf(head).chart({job, head, options, files, reporter});
    });
}

}  // namespace

void addChartCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<ChartCommandOptions>();
    ChartOptions& chart = options->chart;
    CLI::App* command = program.add_subcommand("chart",
                                               "Draw charts: grids with contour lines, winds with "
                                               "streamlines, byte images as pictures, stations with "
                                               "values and wind barbs, soundings as skew-T diagrams, lines "
                                               "and regions of maps");
    addOutputOptions(*command, options->output, formats,
                     "Grid files (diamond 4), wind files (diamond 11), byte images (March 13), station files "
                     "(diamond 1, 2, 3, 8, 16), soundings (diamond 5, March 5) or map files (diamond 9, 10, "
                     "777, 778, 780, March 9)");
    addLevelOptions(*command, options->levels);
    command->add_option_function<std::string>(
        "--bounds", [&chart](const std::string& text) { chart.bounds = parseBounds(text); },
        "Area to draw as west,east,south,north in degrees (default: all that the file covers)");
    addSheetOptions(*command, chart, options->output, options->fillQuantity);
    command
        ->add_option("--density", options->density,
                     "Density of streamlines, 1 to 14 (default: one that suits the map)")
        ->check(CLI::Range(1, 14));
    addStationOptions(*command, *options);
    command->add_option(
        "--station", options->station,
        "Number of the station whose sounding to draw (default: the first or, in a pdf or into a "
        "folder, all)");
    command->callback([options, command, &exitCode] {
        options->centersGiven = options->chart.centers && command->count("--centers") > 0;
        if (options->chart.fill && !options->fillQuantity)
            options->fillQuantity = takeFillQuantity(options->output.inputs);
        exitCode = runChart(*options);
    });
}

}  // namespace velmar::tool
