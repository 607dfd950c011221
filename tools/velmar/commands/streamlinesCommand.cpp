#include "compute/streamlines.h"
#include "compute/windQuantity.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>

#include "cli/command.h"
#include "cli/jobs.h"
#include "cli/levelOptions.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "common/text.h"
#include "write/geoJson.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{"geojson"};

constexpr const char* explanation =
    "Features of kind \"streamline\" are lines in the direction of the flow, those of kind \"arrow\" points\n"
    "on them with the heading of the flow there: degrees clockwise from north, as on a map on which degrees\n"
    "of longitude and latitude have the same length. Both have speedFrom and speedTo, the bounds of the\n"
    "bands of speed, in m/s, that the line passes through; the fastest band has no upper bound.\n"
    "Levels are those of speed where a band begins, 100 bands at most; the slowest begins at 0. Without\n"
    "level options a band is 2 m/s wide, and the fastest begins at 78 m/s.";

struct StreamlinesOptions {
    OutputOptions output;
    int density = 5;
    LevelOptions levels;
    bool split = false;
};

/// Lower bounds of the bands of speed.
std::vector<float> planBands(const StreamlinesOptions& options, const WindGrid& file, std::string& notice) {
    constexpr int customaryBands = 40;
    constexpr float customaryWidth = 2;
    constexpr std::size_t mostBands = 100;
    std::vector<float> bounds{0};
    if (!options.levels.given()) {
        for (int k = 1; k < customaryBands; ++k) bounds.push_back(static_cast<float>(k) * customaryWidth);
        return bounds;
    }
    LevelPlan plan = planLevels(options.levels, windQuantity(file, WindQuantity::speed).values);
    notice = plan.notice;
    std::ranges::sort(plan.levels);
    std::ranges::copy_if(plan.levels, std::back_inserter(bounds), [](float level) { return level > 0; });
    if (bounds.size() > mostBands)
        throw Problem(fmt::format("there are {} bands of speed, more than {}", bounds.size(), mostBands));
    return bounds;
}

/// What both kinds of features say of speed, from their slowest to their fastest band.
Json propertiesOf(const char* kind, const std::vector<float>& levels, int slowest, int fastest) {
    const auto above = static_cast<std::size_t>(fastest) + 1;
    Json properties{{"kind", kind},
                    {"speedFrom", writtenNumber(levels[static_cast<std::size_t>(slowest)])},
                    {"speedTo", nullptr}};
    if (above < levels.size()) properties["speedTo"] = writtenNumber(levels[above]);
    return properties;
}

void addStretch(std::span<const StreamlineSet::Piece> stretch, const std::vector<float>& levels,
                FeatureCollection& collection) {
    const auto [slowest, fastest] = std::ranges::minmax(stretch.subspan(1), {}, &StreamlineSet::Piece::band);
    const Json properties = propertiesOf("streamline", levels, slowest.band, fastest.band);
    collection.add(properties, "LineString", [&](std::string& text) {
        char before = '[';
        for (const auto& [end, band] : stretch) {
            text += before;
            appendPosition(text, end);
            before = ',';
        }
        text += ']';
    });
}

void addLine(std::span<const StreamlineSet::Piece> line, bool split, const std::vector<float>& levels,
             FeatureCollection& collection) {
    std::size_t first = 0;
    for (std::size_t k = 1; k < line.size(); ++k) {
        const bool ends = k + 1 == line.size() || (split && line[k + 1].band != line[k].band);
        if (!ends) continue;
        addStretch(line.subspan(first, k + 1 - first), levels, collection);
        first = k;
    }
}

void addArrow(const StreamlineSet::Arrow& arrow, const std::vector<float>& levels,
              FeatureCollection& collection) {
    constexpr double degrees = 57.29577951308232;
    const double heading =
        degrees * std::atan2(static_cast<double>(arrow.head.longitude) - arrow.tail.longitude,
                             static_cast<double>(arrow.head.latitude) - arrow.tail.latitude);
    Json properties = propertiesOf("arrow", levels, arrow.band, arrow.band);
    const double tenths = std::round(10 * heading) / 10;
    properties["heading"] = tenths < 0 ? tenths + 360 : tenths + 0.0;
    collection.add(properties, "Point", [&](std::string& text) { appendPosition(text, arrow.head); });
}

std::string geoJson(const StreamlineSet& set, bool split) {
    FeatureCollection collection;
    for (std::size_t k = 0; k < set.lineCount(); ++k) addLine(set.line(k), split, set.levels, collection);
    for (const StreamlineSet::Arrow& arrow : set.arrows) addArrow(arrow, set.levels, collection);
    return collection.text();
}

int runStreamlines(const StreamlinesOptions& options) {
    return runJobs(planJobs(options.output, formats), options.output.workers,
                   [&](const Job& job, Reporter& reporter) {
                       const WindGrid file = readWindFile(readFileHead(job.input));
                       std::string notice;
                       const std::vector<float> bands = planBands(options, file, notice);
                       const StreamlineSet set = traceStreamlines(file, options.density, bands);
                       if (set.lineCount() == 0)
                           notice = "there are no streamlines: the wind is missing or calm everywhere";
                       reporter.tell(job.input, notice);
                       writeOutput(job.output, geoJson(set, options.split));
                   });
}

}  // namespace

void addStreamlinesCommand(Program& program) {
    const auto options = std::make_shared<StreamlinesOptions>();
    Command command = program.addCommand("streamlines", "Write the streamlines of wind grids as GeoJSON");
    addOutputOptions(command, options->output, formats, "Wind grids (diamond 11)");
    command.addOption("--density", options->density, "How close the lines are, from 1 to 14")
        .within(1, 14)
        .showsDefault();
    addLevelOptions(command, options->levels);
    command.addFlag("--split", options->split, "Divide lines where the band of speed changes");
    command.explain(explanation);
    command.onRun([options] { return runStreamlines(*options); });
}

}  // namespace velmar::tool
