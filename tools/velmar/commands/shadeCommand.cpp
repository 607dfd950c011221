#include <algorithm>
#include <memory>
#include <numeric>

#include "cli/command.h"
#include "cli/jobs.h"
#include "cli/levelOptions.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "common/text.h"
#include "compute/bands.h"
#include "compute/globeGrid.h"
#include "compute/levelSpacing.h"
#include "compute/levels.h"
#include "compute/shading.h"
#include "read/byteImageFile.h"
#include "write/bandWriter.h"
#include "write/geoJson.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{"geojson"};

constexpr const char* explanation =
    "A feature is a band between two levels, or below the lowest or above the highest of them (lower or\n"
    "upper is null then): a MultiPolygon whose polygons have their holes. Bands do not overlap. They\n"
    "have the lines that contour draws as borders. Without levels a byte image has a band for each value\n"
    "of a byte.\n"
    "With --strip-rows the features are the polygons of the library, each the area above its level in a\n"
    "strip of the grid, in the order to paint them. With strips of one row they give the right picture\n"
    "everywhere. Taller strips give fewer and larger polygons, but holes are polygons of their own then,\n"
    "in the colour below, so that nothing is right without the order, and some areas that are enclosed\n"
    "or without data are painted over.";

struct ShadeOptions {
    OutputOptions output;
    LevelOptions levels;
    std::optional<int> stripRows;
};

/// What is shaded.
struct ShadedField {
    GlobeGrid grid;
    std::vector<float> levels;  ///< rising
    bool isRefined = false;     ///< for bands: as the lines of a grid are
};

/// All values of a byte unless levels were asked for.
LevelPlan planImageLevels(const LevelOptions& options, const grid::GridView& values) {
    if (options.given()) return planLevels(options, values);
    LevelPlan plan{std::vector<float>(256), {}};
    std::iota(plan.levels.begin(), plan.levels.end(), 0.0F);
    return plan;
}

ShadedField readImage(const FileHead& head, const ShadeOptions& options, std::string& notice) {
    ByteImageFile image = readByteImageFile(head);
    LevelPlan plan = planImageLevels(options.levels, image.grid.view());
    notice = plan.notice;
    const bool closes = image.circlesGlobe();
    grid::Grid grid = closes ? closedGrid(image.grid.view()) : std::move(image.grid);
    ShadedField field{{std::move(grid), {}, image.lattice}, ascending(std::move(plan.levels))};
    field.grid.grid = field.grid.values.view();
    return field;
}

ShadedField readGrid(const FileHead& head, const ShadeOptions& options, std::string& notice) {
    const GridFile file = readGridFile(head);
    LevelPlan plan = planLevels(options.levels, file);
    notice = plan.notice;
    ShadedField field{onGlobe(file), ascending(std::move(plan.levels))};
    if (field.grid.values.values.empty()) {
        // The file does not stay.
        field.grid.values = {
            {file.values.values, file.values.values + file.values.size()}, file.values.nx, file.values.ny};
        field.grid.grid = field.grid.values.view();
    }
    field.isRefined = true;
    return field;
}

/// The polygons in drawing order. Outlines run counter-clockwise, as the format asks.
std::string polygonJson(const Shading& shading) {
    FeatureCollection features;
    int order = 0;
    for (const PaintedArea& polygon : shading.polygons) {
        const Json properties{
            {"level", writtenNumber(polygon.level)}, {"colour", polygon.colour}, {"order", order++}};
        const bool forward = polygon.counterClockwise();
        features.add(properties, "Polygon", [&](std::string& text) {
            text += '[';
            for (std::size_t k = 0; k < polygon.size(); ++k) {
                text += k == 0 ? '[' : ',';
                appendPosition(text, polygon[forward ? k : polygon.size() - 1 - k]);
            }
            text += "]]";
        });
    }
    return features.text();
}

std::string stripsJson(const ShadedField& field, int stripRows, std::string& notice) {
    const Shading shading = shadeGrid(field.grid.grid, field.grid.lattice, field.levels, stripRows);
    if (shading.polygons.empty())
        notice = "there is nothing to paint: no cell with data reaches above a level";
    return polygonJson(shading);
}

std::string bandsJson(const ShadedField& field, std::string& notice) {
    const GlobeGrid traced = field.isRefined ? tracedGrid(field.grid) : GlobeGrid{};
    const GlobeGrid& grid = field.isRefined ? traced : field.grid;
    const BandSet set = bandsOf(grid.grid, field.levels);
    const bool isEmpty =
        std::ranges::all_of(set.bands, [](const Band& band) { return band.polygons.empty(); });
    if (isEmpty) notice = "there is nothing to paint: no cell has data at all its corners";
    return geoJson(set, grid.lattice);
}

int runShade(const ShadeOptions& options) {
    return runJobs(
        planJobs(options.output, formats), options.output.workers, [&](const Job& job, Reporter& reporter) {
            const FileHead head = readFileHead(job.input);
            std::string notice;
            const auto read = head.kind.content == FileContent::byteImage ? readImage : readGrid;
            const ShadedField field = read(head, options, notice);
            reporter.tell(job.input, notice);
            notice.clear();
            const std::string text =
                options.stripRows ? stripsJson(field, *options.stripRows, notice) : bandsJson(field, notice);
            reporter.tell(job.input, notice);
            writeOutput(job.output, text);
        });
}

}  // namespace

void addShadeCommand(Program& program) {
    const auto options = std::make_shared<ShadeOptions>();
    Command command =
        program.addCommand("shade", "Write the bands between contour levels as GeoJSON polygons");
    addOutputOptions(command, options->output, formats, "Grid files (diamond 4) or byte images (March 13)");
    addLevelOptions(command, options->levels);
    command
        .addOption("--strip-rows", options->stripRows,
                   "Write the areas above levels in strips of so many rows of cells; 0: the whole grid")
        .notNegative();
    command.explain(explanation);
    command.onRun([options] { return runShade(*options); });
}

}  // namespace velmar::tool
