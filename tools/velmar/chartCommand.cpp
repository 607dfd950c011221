#include <CLI/CLI.hpp>
#include <memory>

#include "chartOptions.h"
#include "commands.h"
#include "jobs.h"
#include "levels.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{"png", "svg", "pdf"};

struct ChartCommandOptions {
    OutputOptions output;
    LevelOptions levels;
    ChartOptions chart;
    bool centersGiven = false;
};

std::string gridChart(const Job& job, const FileHead& head, const ChartCommandOptions& options,
                      Reporter& reporter) {
    const GridFile file = readGridFile(job.input, head);
    const LevelPlan plan = planLevels(options.levels, file);
    reporter.tell(job.input, plan.notice);
    return drawChart(file, drawContours(file, plan.levels), options.chart, job.format);
}

std::string imageChart(const Job& job, const FileHead& head, const ChartCommandOptions& options,
                       Reporter& reporter) {
    if (options.chart.fill || options.levels.given() || options.centersGiven)
        reporter.tell(job.input,
                      "it is drawn as the picture that it is: a byte image has no levels, bands and centres");
    return drawChart(readByteImageFile(head), options.chart, job.format);
}

int runChart(const ChartCommandOptions& options) {
    return runJobs(planJobs(options.output, formats), [&](const Job& job, Reporter& reporter) {
        const FileHead head = readFileHead(job.input);
        const auto draw = isByteImage(head) ? imageChart : gridChart;
        writeOutput(job.output, draw(job, head, options, reporter));
    });
}

}  // namespace

void addChartCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<ChartCommandOptions>();
    ChartOptions& chart = options->chart;
    CLI::App* command =
        program.add_subcommand("chart", "Draw charts: grids with contour lines, byte images as pictures");
    addOutputOptions(*command, options->output, formats, "Grid files (diamond 4) or byte images (March 13)");
    addLevelOptions(*command, options->levels);
    command->add_option_function<std::string>(
        "--bounds", [&chart](const std::string& text) { chart.bounds = parseBounds(text); },
        "Area to draw as west,east,south,north in degrees (default: the whole grid)");
    addSheetOptions(*command, chart);
    command->callback([options, command, &exitCode] {
        options->centersGiven = options->chart.centers && command->count("--centers") > 0;
        exitCode = runChart(*options);
    });
}

}  // namespace velmar::tool
