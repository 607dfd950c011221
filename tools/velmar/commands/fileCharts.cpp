#include "commands/fileCharts.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <map>

#include "chart/soundingChart.h"
#include "chart/stationChart.h"
#include "cli/output.h"
#include "common/text.h"
#include "read/soundingFile.h"

namespace velmar::tool {
namespace {

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
void tellUnused(const ChartJob& chart, std::string_view file, std::initializer_list<Topic> topics) {
    std::vector<std::string_view> given;
    for (const Topic& topic : topics)
        if (topic.given) given.push_back(topic.name);
    if (!given.empty()) chart.tell(fmt::format("{} has no {}", file, fmt::join(given, ", ")));
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
    constexpr int mostSpeeds = 12;
    const float leastStep = strongest / mostSpeeds;
    if (!(leastStep > 0)) return {};
    const float step = roundedUp(leastStep);
    std::vector<float> levels;
    for (int k = 1; k <= mostSpeeds && static_cast<float>(k) * step <= strongest; ++k)
        levels.push_back(static_cast<float>(k) * step);
    return levels;
}

/// Levels of the area shown for speed. Differences have none at 0, so that places with little of them keep a
/// colour of their own.
LevelPlan planWindLevels(const LevelOptions& options, WindQuantity quantity, const GridFile& values,
                         const std::optional<GeoBox>& shown) {
    const bool isSpeed = quantity == WindQuantity::speed;
    const PlacedExtremes extremes =
        findExtremes(values.values, values.header.field.lattice, shown ? &*shown : nullptr);
    if (isSpeed && !options.given() && extremes.present > 0) return {speedLevels(extremes.largest.value), {}};
    LevelPlan plan = planLevels(options, values);
    std::erase_if(plan.levels,
                  [&](float level) { return isSpeed ? level <= 0 : level == 0 && !options.given(); });
    std::ranges::sort(plan.levels);
    return plan;
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

/// A name for the picture of each sounding. Further soundings of one station are counted from 2.
std::vector<std::string> pictureNames(const Job& job, const CheckedSoundings& file) {
    const std::filesystem::path output(job.output);
    std::map<int, int> seen;
    std::vector<std::string> names;
    for (const CheckedSounding& sounding : file.soundings) {
        const int count = ++seen[sounding.number];
        const std::string name = fmt::format("{}_{}{}.{}", output.stem().string(), sounding.number,
                                             count > 1 ? fmt::format("_{}", count) : "", job.format);
        names.push_back((output.parent_path() / name).string());
    }
    return names;
}

/// Draws a picture of each sounding. Which other files have claimed a picture's name is known in the job's turn.
void drawIntoFolder(const ChartJob& chart, const CheckedSoundings& file) {
    const std::vector<std::string> names = pictureNames(chart.job, file);
    std::vector<std::string> pictures;
    for (const CheckedSounding& sounding : file.soundings) {
        const CheckedSoundings alone{
            .title = file.title, .time = file.time, .promised = 1, .soundings = {sounding}};
        pictures.push_back(drawSoundings(alone, chart.options.chart.size, chart.job.format));
    }
    chart.reporter.awaitTurn();
    for (const std::string& name : names) chart.files.claim(name, chart.job.input);
    for (std::size_t k = 0; k < names.size(); ++k) writeOutput(names[k], pictures[k]);
}

}  // namespace

void chartGrid(const ChartJob& chart) {
    const ChartCommandOptions& options = chart.options;
    const GridFile file = readGridFile(chart.head);
    const LevelPlan plan = planLevels(options.levels, file);
    chart.tell(plan.notice);
    if (options.fillQuantity) chart.tell("a grid file has one quantity, and it is filled with that");
    tellUnused(chart, "a grid file", {streamlinesTopic(options), stationsTopic(options)});
    writeOutput(chart.job.output, drawGridChart(file, plan.levels, options.chart, chart.job.format));
}

void chartByteImage(const ChartJob& chart) {
    const ChartCommandOptions& options = chart.options;
    if (options.chart.fill || options.levels.given() || options.centersGiven || options.density)
        chart.tell(
            "it is drawn as the picture that it is: a byte image has no levels, bands, centres and "
            "streamlines");
    tellUnused(chart, "a byte image", {stationsTopic(options)});
    writeOutput(chart.job.output,
                drawImageChart(readByteImageFile(chart.head), options.chart, chart.job.format));
}

void chartWind(const ChartJob& chart) {
    const ChartCommandOptions& options = chart.options;
    constexpr float shownDifference = 1e5F;     // in 10^-5 1/s
    constexpr std::size_t mostLineLevels = 99;  // the library colours lines in 100 bands
    tellUnused(chart, "a wind file", {centersTopic(options), stationsTopic(options)});
    const WindGrid file = readWindFile(chart.head);
    const WindQuantity quantity = options.fillQuantity.value_or(WindQuantity::speed);
    const GridFile values =
        windQuantity(file, quantity, quantity == WindQuantity::speed ? 1 : shownDifference);
    const LevelPlan plan = planWindLevels(options.levels, quantity, values, options.chart.bounds);
    if (!options.chart.fill && plan.levels.size() > mostLineLevels)
        throw Problem(
            fmt::format("{} levels are too many for the colours of lines; --fill takes more than {}",
                        plan.levels.size(), mostLineLevels));
    chart.tell(plan.notice);
    writeOutput(chart.job.output, drawWindChart(file, {quantity, values, plan.levels}, options.density,
                                                options.chart, chart.job.format));
}

void chartStations(const ChartJob& chart) {
    const ChartCommandOptions& options = chart.options;
    const StationFile file = readStationFile(chart.head);
    chart.tell(lackOfStations(file));
    tellUnused(chart, "a station file",
               {bandsTopic(options), levelsTopic(options), centersTopic(options), streamlinesTopic(options)});
    writeOutput(chart.job.output,
                drawStationChart(file, planPlot(options, file), options.chart, chart.job.format));
}

void chartMap(const ChartJob& chart) {
    const ChartCommandOptions& options = chart.options;
    const LineMap map = readLineMap(chart.head);
    chart.tell(map.notice);
    tellUnused(chart, "a file of map lines",
               {bandsTopic(options), levelsTopic(options), centersTopic(options), streamlinesTopic(options),
                stationsTopic(options)});
    writeOutput(chart.job.output, drawMapChart(map, options.chart, chart.job.format));
}

void chartSoundings(const ChartJob& chart) {
    const ChartCommandOptions& options = chart.options;
    const Job& job = chart.job;
    tellUnused(chart, "a file of soundings",
               {bandsTopic(options), levelsTopic(options), centersTopic(options), streamlinesTopic(options)});
    if (options.chart.bounds) chart.tell("a diagram of a sounding has no --bounds");
    CheckedSoundings file = readSoundingFile(chart.head);
    chart.tell(file.notice());
    if (options.station) keepStation(file, *options.station);
    if (file.soundings.empty()) throw Problem("it has no sounding that can be read");
    if (job.format != "pdf") {
        if (!options.output.folder.empty()) return drawIntoFolder(chart, file);
        if (file.soundings.size() > 1)
            chart.tell(
                fmt::format("this is station {}, the first of {} soundings; --station chooses another, a "
                            "pdf or --out-dir takes all",
                            file.soundings.front().number, file.soundings.size()));
        file.soundings.resize(1);
    }
    writeOutput(job.output, drawSoundings(file, options.chart.size, job.format));
}

}  // namespace velmar::tool
