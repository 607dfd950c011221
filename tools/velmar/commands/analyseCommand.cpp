#include <fmt/format.h>

#include <algorithm>
#include <memory>

#include "cli/arguments.h"
#include "cli/chartOptions.h"
#include "cli/command.h"
#include "cli/jobs.h"
#include "cli/levelOptions.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "common/text.h"
#include "compute/analysis.h"
#include "compute/levelSpacing.h"
#include "compute/levels.h"
#include "read/stationFile.h"
#include "write/gridWriter.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{gridFormat, "csv", "png", "svg", "pdf"};

/// By the values of AnalysisMethod.
const std::vector<std::string> methodNames{"barnes", "cressman", "nearest"};

constexpr const char* explanation =
    "Methods: barnes weights stations within 20 degrees by their distance and then corrects the field\n"
    "five times; its grid has bounds of whole degrees, and others are widened. cressman corrects within\n"
    "25, 10, 5, 2 and 1 steps of the grid; points with no station within 5 steps have no data, so that\n"
    "wide gaps between stations need wide steps. nearest takes the value of the nearest station.\n"
    "Stations with the value 9999 or 999999 are left out. Without level options the lines are those\n"
    "that the file asks for, if any lies inside the data.";

struct AnalyseOptions {
    OutputOptions output;
    AnalysisMethod method = AnalysisMethod::barnes;
    std::optional<int> element;
    GridRequest grid;
    float maskRadius = 0;
    LevelOptions levels;
    ChartOptions chart;
};

/// The stations of a file and the field made from them.
struct Analysis {
    PlottedStations stations;
    GridFile grid;
};

GridSteps parseSteps(const std::string& text) {
    const auto numbers = parseNumbers("--step", text);
    if (numbers.size() > 2 || !(numbers.front() > 0) || !(numbers.back() > 0))
        throw UsageError("--step", fmt::format("\"{}\" is not one or two numbers above 0", text));
    return {numbers.front(), numbers.back()};
}

std::string remarkOf(const AnalyseOptions& options, int element, std::size_t stations) {
    const std::string& method = methodNames[static_cast<std::size_t>(options.method)];
    return fmt::format("{}, element {} of {} stations", method, element, stations);
}

/// Tells the levels to the header, or automatic ones where it cannot hold them: it has room for even steps only.
void setHints(files::GridHeader& header, std::vector<float> levels, const grid::GridView& values) {
    if (evenStep(levels) <= 0) levels = planLevels(LevelOptions{}, values).levels;
    std::ranges::sort(levels);
    header.interval = evenStep(levels);
    if (levels.empty()) return;
    header.startValue = levels.front();
    header.endValue = levels.back();
}

Analysis analyse(const Job& job, const AnalyseOptions& options, const StationFile& file, Reporter& reporter) {
    const int element = chooseElement(file, options.element);
    const analysis::Stations stations = file.withValue(element);
    if (stations.values.empty()) throw Problem(fmt::format("no station has a value of element {}", element));
    GridRequest request = options.grid;
    request.wholeDegrees = options.method == AnalysisMethod::barnes;
    const GridPlan plan = planGrid(request, stations.view());
    reporter.tell(job.input, plan.notice);

    Analysis result{
        .stations = {.stations = {}, .remark = remarkOf(options, element, stations.values.size())},
        .grid = {}};
    for (std::size_t k = 0; k < stations.values.size(); ++k)
        result.stations.stations.push_back(
            {stations.values[k], stations.longitudes[k], stations.latitudes[k]});
    GridFile& grid = result.grid;
    grid.title = file.title;
    grid.titleBytes = file.titleBytes;
    grid.header.field = file.field;
    grid.header.field.lattice = plan.lattice;
    grid.header.field.nx = plan.nx;
    grid.header.field.ny = plan.ny;
    grid.header.boldValue = file.boldValue;
    grid.storage = analyseStations(options.method, plan, stations.view(), options.maskRadius);
    grid.values = {grid.storage.get(), plan.nx, plan.ny};
    return result;
}

void analyseFile(const Job& job, const AnalyseOptions& options, Reporter& reporter) {
    const StationFile file = readStationFile(readFileHead(job.input));
    reporter.tell(job.input, lackOfStations(file));
    auto [stations, grid] = analyse(job, options, file, reporter);
    const LevelPlan plan = planStationLevels(options.levels, file, grid.values);
    reporter.tell(job.input, plan.notice);
    setHints(grid.header, plan.levels, grid.values);
    if (job.format == gridFormat)
        writeOutput(job.output, gridFileText(grid));
    else if (job.format == "csv")
        writeOutput(job.output, commaSeparated(grid));
    else
        writeOutput(job.output, drawGridChart(grid, plan.levels, options.chart, job.format, stations));
}

int runAnalyse(const AnalyseOptions& options) {
    return runJobs(planJobs(options.output, formats), options.output.workers,
                   [&](const Job& job, Reporter& reporter) { analyseFile(job, options, reporter); });
}

}  // namespace

void addAnalyseCommand(Program& program) {
    const auto options = std::make_shared<AnalyseOptions>();
    Command command = program.addCommand(
        "analyse",
        "Spread station values over a grid; write it as a grid file or CSV, or draw it as a chart");
    addOutputOptions(command, options->output, formats, "Station files (diamond 1, 2, 3, 8 and 16)");
    command.addChoice(
        "--method", methodNames,
        [options](std::size_t place) { options->method = static_cast<AnalysisMethod>(place); },
        "barnes, cressman or nearest (default barnes)");
    command.addOption(
        "--element", options->element,
        "Which value of a station: the number of the field of a report (default: the "
        "temperature; that of a list of stations is their height), or of the value in a file of "
        "several (default 1)");
    command.addParsedOption(
        "--bounds", [options](const std::string& text) { options->grid.bounds = parseBounds(text); },
        "Area of the grid as west,east,south,north in degrees (default: a degree more than the stations "
        "cover)");
    command.addParsedOption(
        "--step", [options](const std::string& text) { options->grid.steps = parseSteps(text); },
        "Distance of grid points in degrees, as 0.5 or LONGITUDE,LATITUDE, fitted to the bounds "
        "(default: half of the stations' mean distance or less)");
    command
        .addOption("--mask-radius", options->maskRadius,
                   "Leave points without data that have no station within so many degrees, and cap the "
                   "others, unless by nearest, by the largest value there; 0: no (default)")
        .within(0.0, 180.0);
    addLevelOptions(command, options->levels);
    addSheetOptions(command, options->chart, options->output);
    command.explain(explanation);
    command.onRun([options] { return runAnalyse(*options); });
}

}  // namespace velmar::tool
