#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <optional>

#include "commands.h"
#include "contours.h"
#include "geoJson.h"
#include "jobs.h"
#include "levels.h"
#include "problem.h"
#include "shading.h"
#include "text.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{"geojson"};

constexpr const char* explanation =
    "A polygon is the area above its level in a strip of the grid. With strips of one row the\n"
    "polygons, painted in their order, give the right picture everywhere. Taller strips give\n"
    "fewer and larger polygons, but holes are polygons of their own then, in the colour below,\n"
    "so that nothing is right without the order, and some areas that are enclosed or without\n"
    "data are painted over. A byte image is shaded at all its values or, with --levels, at one.";

struct ShadeOptions {
    OutputOptions output;
    LevelOptions levels;
    int stripRows = 1;
};

Shading shadeImage(const Job& job, const FileHead& head, const ShadeOptions& options) {
    const LevelOptions& levels = options.levels;
    if (levels.given() && levels.list.size() != 1)
        throw Problem("a byte image is shaded at all its values or, with --levels, at a single one");
    const auto level = levels.given() ? std::optional(levels.list.front()) : std::nullopt;
    return shadeByteImage(job.input, head, level, options.stripRows);
}

Shading shadeGridFile(const Job& job, const FileHead& head, const ShadeOptions& options, Reporter& reporter) {
    const LevelPlan plan = planLevels(options.levels, readGridFile(job.input, head));
    if (!plan.notice.empty()) reporter.tell(job.input, plan.notice);
    // Without levels the contouring just closes a grid that circles the globe.
    const ContourSet set = drawContours(job.input, {});
    return shadeGrid(set.grid, set.lattice, ascending(plan.levels), options.stripRows);
}

/// The polygons in drawing order. Outlines run counter-clockwise, as the format asks.
std::string polygonJson(const Shading& shading) {
    FeatureCollection collection;
    int order = 0;
    for (const ShadePolygon& polygon : shading.polygons) {
        Json ring = positionsJson(polygon);
        if (!polygon.counterClockwise()) std::reverse(ring.begin(), ring.end());
        collection.add(
            {{"level", writtenNumber(polygon.level)}, {"colour", polygon.colour}, {"order", order++}},
            {{"type", "Polygon"}, {"coordinates", Json::array({std::move(ring)})}});
    }
    return collection.text();
}

int runShade(const ShadeOptions& options) {
    return runJobs(planJobs(options.output, formats), [&](const Job& job, Reporter& reporter) {
        const FileHead head = readFileHead(job.input);
        const Shading shading =
            isByteImage(head) ? shadeImage(job, head, options) : shadeGridFile(job, head, options, reporter);
        if (shading.polygons.empty())
            reporter.tell(job.input, "there is nothing to paint: no cell with data reaches above a level");
        writeOutput(job.output, polygonJson(shading));
    });
}

}  // namespace

void addShadeCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<ShadeOptions>();
    CLI::App* command = program.add_subcommand(
        "shade", "Write the areas above contour levels as GeoJSON polygons, in the order to paint them");
    addOutputOptions(*command, options->output, formats, "Grid files (diamond 4) or byte images (March 13)");
    addLevelOptions(*command, options->levels);
    command->add_option("--strip-rows", options->stripRows, "Rows of cells in a strip; 0: the whole grid")
        ->check(CLI::NonNegativeNumber)
        ->capture_default_str();
    command->footer(explanation);
    command->callback([options, &exitCode] { exitCode = runShade(*options); });
}

}  // namespace velmar::tool
