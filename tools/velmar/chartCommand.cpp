#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "chartOptions.h"
#include "commands.h"
#include "jobs.h"
#include "levels.h"
#include "problem.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{"png", "svg", "pdf"};

struct ChartCommandOptions {
    OutputOptions output;
    LevelOptions levels;
    ChartOptions chart;
    std::optional<WindQuantity> fillQuantity;
    std::optional<int> density;
    bool centersGiven = false;
};

std::string gridChart(const Job& job, const FileHead& head, const ChartCommandOptions& options,
                      Reporter& reporter) {
    const GridFile file = readGridFile(job.input, head);
    const LevelPlan plan = planLevels(options.levels, file);
    reporter.tell(job.input, plan.notice);
    if (options.fillQuantity)
        reporter.tell(job.input, "a grid file has one quantity, and it is filled with that");
    if (options.density) reporter.tell(job.input, "a grid file has no streamlines for --density");
    return drawChart(file, drawContours(file, plan.levels), options.chart, job.format);
}

std::string imageChart(const Job& job, const FileHead& head, const ChartCommandOptions& options,
                       Reporter& reporter) {
    if (options.chart.fill || options.levels.given() || options.centersGiven || options.density)
        reporter.tell(job.input,
                      "it is drawn as the picture that it is: a byte image has no levels, bands, centres and "
                      "streamlines");
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
    if (options.centersGiven) reporter.tell(job.input, "a wind file has no centres");
    const WindFile file = readWindFile(job.input, head);
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

std::string chartOf(const Job& job, const FileHead& head, const ChartCommandOptions& options,
                    Reporter& reporter) {
    if (isByteImage(head)) return imageChart(job, head, options, reporter);
    if (isWindFile(head)) return windChart(job, head, options, reporter);
    return gridChart(job, head, options, reporter);
}

int runChart(const ChartCommandOptions& options) {
    return runJobs(planJobs(options.output, formats), [&](const Job& job, Reporter& reporter) {
        writeOutput(job.output, chartOf(job, readFileHead(job.input), options, reporter));
    });
}

}  // namespace

void addChartCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<ChartCommandOptions>();
    ChartOptions& chart = options->chart;
    CLI::App* command = program.add_subcommand(
        "chart", "Draw charts: grids with contour lines, winds with streamlines, byte images as pictures");
    addOutputOptions(*command, options->output, formats,
                     "Grid files (diamond 4), wind files (diamond 11) or byte images (March 13)");
    addLevelOptions(*command, options->levels);
    command->add_option_function<std::string>(
        "--bounds", [&chart](const std::string& text) { chart.bounds = parseBounds(text); },
        "Area to draw as west,east,south,north in degrees (default: the whole grid)");
    addSheetOptions(*command, chart, options->fillQuantity);
    command
        ->add_option("--density", options->density,
                     "Density of streamlines, 1 to 14 (default: one that suits the map)")
        ->check(CLI::Range(1, 14));
    command->callback([options, command, &exitCode] {
        options->centersGiven = options->chart.centers && command->count("--centers") > 0;
        if (options->chart.fill && !options->fillQuantity)
            options->fillQuantity = takeFillQuantity(options->output.inputs);
        exitCode = runChart(*options);
    });
}

}  // namespace velmar::tool
