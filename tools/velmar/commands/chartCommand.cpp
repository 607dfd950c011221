#include <fmt/format.h>
#include <fmt/ranges.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "chart/soundingCharts.h"
#include "chart/stationChart.h"
#include "cli/arguments.h"
#include "cli/callFiles.h"
#include "cli/chartOptions.h"
#include "cli/jobs.h"
#include "cli/levels.h"
#include "cli/problem.h"
#include "commands/commands.h"
#include "read/soundingFile.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{"png", "svg", "pdf"};

struct ChartCommandOptions {
    OutputOptions output;
    LevelOptions levels;
    ChartOptions chart;
    std::optional<WindQuantity> fillQuantity;
    std::optional<int> density;
    std::optional<int> field;
    std::optional<WindElements> wind;
    bool showsWind = true;
    bool centersGiven = false;
    std::optional<int> station;
};

/// A thing that options are about, and whether one of them has been given.
struct Topic {
    bool given;
    std::string_view name;
};

Topic bandsTopic(const ChartCommandOptions& options) { return {options.chart.fill, "bands to be filled"}; }
Topic levelsTopic(const ChartCommandOptions& options) { return {options.levels.given(), "levels"}; }
Topic centersTopic(const ChartCommandOptions& options) { return {options.centersGiven, "centres"}; }
Topic streamlinesTopic(const ChartCommandOptions& options) {
    return {options.density.has_value(), "streamlines"};
}
Topic stationsTopic(const ChartCommandOptions& options) {
    return {options.field || options.wind || !options.showsWind, "stations"};
}

/// Says which options play no part.
void tellUnused(const Job& job, Reporter& reporter, std::string_view file,
                std::initializer_list<Topic> topics) {
    std::vector<std::string_view> given;
    for (const Topic& topic : topics)
        if (topic.given) given.push_back(topic.name);
    if (!given.empty()) reporter.tell(job.input, fmt::format("{} has no {}", file, fmt::join(given, ", ")));
}

std::string gridChart(const Job& job, const FileHead& head, const ChartCommandOptions& options,
                      Reporter& reporter) {
    const GridFile file = readGridFile(head);
    const LevelPlan plan = planLevels(options.levels, file);
    reporter.tell(job.input, plan.notice);
    if (options.fillQuantity)
        reporter.tell(job.input, "a grid file has one quantity, and it is filled with that");
    tellUnused(job, reporter, "a grid file", {streamlinesTopic(options), stationsTopic(options)});
    return drawChart(file, drawContours(file, plan.levels), options.chart, job.format);
}

std::string imageChart(const Job& job, const FileHead& head, const ChartCommandOptions& options,
                       Reporter& reporter) {
    if (options.chart.fill || options.levels.given() || options.centersGiven || options.density)
        reporter.tell(job.input,
                      "it is drawn as the picture that it is: a byte image has no levels, bands, centres and "
                      "streamlines");
    tellUnused(job, reporter, "a byte image", {stationsTopic(options)});
    return drawChart(readByteImageFile(head), options.chart, job.format);
}

/// The smallest of 1, 2, 2.5, 5, 10, 20 ... and their tenths that is not below a number.
float roundedUp(float number) {
    const double power = std::pow(10.0, std::floor(std::log10(number)));
    constexpr std::array digits{1.0, 2.0, 2.5, 5.0, 10.0};
    const auto* const digit = std::ranges::find_if(digits, [&](double d) { return d * power >= number; });
    return static_cast<float>((digit == digits.end() ? digits.back() : *digit) * power);
}

/// Round steps up to the strongest wind, however rare: that is the jet.
std::vector<float> speedLevels(float strongest) {
    constexpr int mostLevels = 12;
    const float leastStep = strongest / mostLevels;
    if (!(leastStep > 0)) return {};
    const float step = roundedUp(leastStep);
    std::vector<float> levels;
    for (int k = 1; k <= mostLevels && static_cast<float>(k) * step <= strongest; ++k)
        levels.push_back(static_cast<float>(k) * step);
    return levels;
}

/// Levels of the area shown for speed. Differences have none at 0, so that places with little of them keep a
/// colour of their own.
LevelPlan planWindLevels(const LevelOptions& options, WindQuantity quantity, const GridFile& values,
                         const std::optional<Bounds>& shown) {
    const bool isSpeed = quantity == WindQuantity::speed;
    const Extremes extremes =
        findExtremes(values.values, values.header.field.lattice, shown ? &*shown : nullptr);
    if (isSpeed && !options.given() && extremes.present > 0) return {speedLevels(extremes.largest.value), {}};
    LevelPlan plan = planLevels(options, values);
    std::erase_if(plan.levels,
                  [&](float level) { return isSpeed ? level <= 0 : level == 0 && !options.given(); });
    std::ranges::sort(plan.levels);
    return plan;
}

std::string windChart(const Job& job, const FileHead& head, const ChartCommandOptions& options,
                      Reporter& reporter) {
    constexpr float shownDifference = 1e5F;     // in 10^-5 1/s
    constexpr std::size_t mostLineLevels = 99;  // the library colours lines in 100 bands
    tellUnused(job, reporter, "a wind file", {centersTopic(options), stationsTopic(options)});
    const WindFile file = readWindFile(head);
    const WindQuantity quantity = options.fillQuantity.value_or(WindQuantity::speed);
    const GridFile values =
        windQuantity(file, quantity, quantity == WindQuantity::speed ? 1 : shownDifference);
    const LevelPlan plan = planWindLevels(options.levels, quantity, values, options.chart.bounds);
    if (!options.chart.fill && plan.levels.size() > mostLineLevels)
        throw Problem(
            fmt::format("{} levels are too many for the colours of lines; --fill takes more than {}",
                        plan.levels.size(), mostLineLevels));
    reporter.tell(job.input, plan.notice);
    return drawChart(file, {quantity, values, plan.levels}, options.density, options.chart, job.format);
}

/// What is plotted at the stations: what the user says, or else what is customary.
StationPlot planPlot(const ChartCommandOptions& options, const StationFile& file) {
    StationPlot plot{};
    plot.element = chooseElement(file, options.field);
    plot.quantity = quantityOf(file.type, plot.element);
    plot.cloud = customaryCloud(file.type);
    if (!options.showsWind) return plot;
    plot.wind = options.wind ? options.wind : customaryWind(file.type);
    if (plot.wind) {
        chooseElement(file, plot.wind->direction);
        chooseElement(file, plot.wind->speed);
    }
    return plot;
}

std::string stationChart(const Job& job, const FileHead& head, const ChartCommandOptions& options,
                         Reporter& reporter) {
    const StationFile file = readStationFile(head);
    reporter.tell(job.input, lackOfStations(file));
    tellUnused(job, reporter, "a station file",
               {bandsTopic(options), levelsTopic(options), centersTopic(options), streamlinesTopic(options)});
    return drawChart(file, planPlot(options, file), options.chart, job.format);
}

std::string lineChart(const Job& job, const FileHead& head, const ChartCommandOptions& options,
                      Reporter& reporter) {
    const LineMap map = readLineMap(head);
    reporter.tell(job.input, map.notice);
    tellUnused(job, reporter, "a file of map lines",
               {bandsTopic(options), levelsTopic(options), centersTopic(options), streamlinesTopic(options),
                stationsTopic(options)});
    return drawChart(map, options.chart, job.format);
}

std::string chartOf(const Job& job, const FileHead& head, const ChartCommandOptions& options,
                    Reporter& reporter) {
    if (isByteImage(head)) return imageChart(job, head, options, reporter);
    if (isWindFile(head)) return windChart(job, head, options, reporter);
    if (isStationFile(head)) return stationChart(job, head, options, reporter);
    if (isLineMap(head)) return lineChart(job, head, options, reporter);
    return gridChart(job, head, options, reporter);
}

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

void soundingCharts(const Job& job, const FileHead& head, const ChartCommandOptions& options,
                    CallFiles& files, Reporter& reporter) {
    tellUnused(job, reporter, "a file of soundings",
               {bandsTopic(options), levelsTopic(options), centersTopic(options), streamlinesTopic(options)});
    if (options.chart.bounds) reporter.tell(job.input, "a diagram of a sounding has no --bounds");
    chartSoundings(job, head, {options.station, options.chart.size, !options.output.folder.empty()}, files,
                   reporter);
}

int runChart(const ChartCommandOptions& options) {
    CallFiles files(options.output);
    return runJobs(
        planJobs(options.output, formats, files), options.output.workers,
        [&](const Job& job, Reporter& reporter) {
            const FileHead head = readFileHead(job.input);
            if (isSoundingFile(head)) return soundingCharts(job, head, options, files, reporter);
            tellUnused(job, reporter, "it", {{options.station.has_value(), "soundings for --station"}});
            writeOutput(job.output, chartOf(job, head, options, reporter));
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
