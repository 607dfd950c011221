#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <numeric>

#include "cli/jobs.h"
#include "cli/levelOptions.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "common/text.h"
#include "compute/contours.h"
#include "compute/shading.h"
#include "read/byteImageFile.h"
#include "write/geoJson.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{"geojson"};

constexpr const char* explanation =
    "A polygon is the area above its level in a strip of the grid. With strips of one row the\n"
    "polygons, painted in their order, give the right picture everywhere. Taller strips give\n"
    "fewer and larger polygons, but holes are polygons of their own then, in the colour below,\n"
    "so that nothing is right without the order, and some areas that are enclosed or without\n"
    "data are painted over. Without levels a byte image is shaded at all values of a byte.";

struct ShadeOptions {
    OutputOptions output;
    LevelOptions levels;
    int stripRows = 1;
};

/// All values of a byte unless levels were asked for.
LevelPlan planImageLevels(const LevelOptions& options, const grid::GridView& values) {
    if (options.given()) return planLevels(options, values);
    LevelPlan plan{std::vector<float>(256), {}};
    std::iota(plan.levels.begin(), plan.levels.end(), 0.0F);
    return plan;
}

Shading shadeImage(const Job& job, const FileHead& head, const ShadeOptions& options, Reporter& reporter) {
    const ByteImageFile image = readByteImageFile(head);
    const LevelPlan plan = planImageLevels(options.levels, image.grid.view());
    reporter.tell(job.input, plan.notice);
    const grid::Grid grid = image.circlesGlobe() ? closedGrid(image.grid.view()) : image.grid;
    return shadeGrid(grid.view(), image.lattice, ascending(plan.levels), options.stripRows);
}

Shading shadeGridFile(const Job& job, const FileHead& head, const ShadeOptions& options, Reporter& reporter) {
    const GridFile file = readGridFile(head);
    const LevelPlan plan = planLevels(options.levels, file);
    reporter.tell(job.input, plan.notice);
    // Without levels the contouring just closes a grid that circles the globe.
    const ContourSet set = drawContours(file, {});
    return shadeGrid(set.grid, set.lattice, ascending(plan.levels), options.stripRows);
}

/// The polygons in drawing order. Outlines run counter-clockwise, as the format asks.
std::string polygonJson(const Shading& shading) {
    FeatureCollection collection;
    int order = 0;
    for (const PaintedArea& polygon : shading.polygons) {
        Json ring = positionsJson(polygon);
        if (!polygon.counterClockwise()) std::reverse(ring.begin(), ring.end());
        collection.add(
            {{"level", writtenNumber(polygon.level)}, {"colour", polygon.colour}, {"order", order++}},
            {{"type", "Polygon"}, {"coordinates", Json::array({std::move(ring)})}});
    }
    return collection.text();
}

int runShade(const ShadeOptions& options) {
    return runJobs(
        planJobs(options.output, formats), options.output.workers, [&](const Job& job, Reporter& reporter) {
            const FileHead head = readFileHead(job.input);
            const auto shade = head.kind.content == FileContent::byteImage ? shadeImage : shadeGridFile;
            const Shading shading = shade(job, head, options, reporter);
            if (shading.polygons.empty())
                reporter.tell(job.input,
                              "there is nothing to paint: no cell with data reaches above a level");
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
