#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "chart/stationChart.h"
#include "cli/chartOptions.h"
#include "cli/jobs.h"
#include "cli/levelOptions.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "common/text.h"
#include "compute/levels.h"
#include "read/stationElements.h"
#include "write/lineWriter.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{"png", "svg", "pdf", "geojson"};

constexpr const char* explanation =
    "The lines are straight inside triangles whose corners are stations. The first triangle is made of the\n"
    "first station and two near it; where those are not typical, the lines suffer. GeoJSON has features of\n"
    "kind \"line\" with their value, then those of kind \"triangle\" with the numbers of their stations, "
    "counted\n"
    "from 0 among those that have a value. Without level options the lines are those that the file asks\n"
    "for, if any lies inside the data.";

struct TrianglesOptions {
    OutputOptions output;
    std::optional<int> element;
    LevelOptions levels;
    ChartOptions chart;
    bool withNetwork = true;
};

void contourFile(const Job& job, const TrianglesOptions& options, Reporter& reporter) {
    const StationFile file = readStationFile(readFileHead(job.input));
    reporter.tell(job.input, lackOfStations(file));
    const int element = chooseElement(file, options.element);
    const analysis::Stations stations = file.withValue(element);
    if (stations.values.empty()) throw Problem(fmt::format("no station has a value of element {}", element));
    const grid::GridView values{stations.values.data(), static_cast<int>(stations.values.size()), 1};
    const LevelPlan plan = planStationLevels(options.levels, file, values);
    reporter.tell(job.input, plan.notice);
    const StationContours contours = contourStations(stations, plan.levels);
    if (job.format == "geojson") return writeOutput(job.output, geoJson(contours));
    const StationPlot plot{element, std::string(quantityOf(file.type, element)), {}, {}};
    writeOutput(job.output,
                drawTriangleChart(file, plot, contours, options.withNetwork, options.chart, job.format));
}

int runTriangles(const TrianglesOptions& options) {
    return runJobs(planJobs(options.output, formats), options.output.workers,
                   [&](const Job& job, Reporter& reporter) { contourFile(job, options, reporter); });
}

}  // namespace

void addTrianglesCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<TrianglesOptions>();
    CLI::App* command = program.add_subcommand(
        "triangles", "Draw contour lines straight from stations, over a network of triangles, or write them");
    addOutputOptions(*command, options->output, formats, "Station files (diamond 1, 2, 3, 8 and 16)");
    command->add_option("--element", options->element, "Which value of a station, as in analyse");
    addLevelOptions(*command, options->levels);
    command->add_option_function<std::string>(
        "--bounds", [options](const std::string& text) { options->chart.bounds = parseBounds(text); },
        "Area to draw as west,east,south,north in degrees (default: that of the stations)");
    addSizeOption(*command, options->chart);
    addMapOption(*command, options->chart, options->output);
    command->add_flag("--network,!--no-network", options->withNetwork, "Draw the triangles (default: yes)");
    command->footer(explanation);
    command->callback([options, &exitCode] { exitCode = runTriangles(*options); });
}

}  // namespace velmar::tool
