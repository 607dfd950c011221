#include <memory>

#include "cli/command.h"
#include "cli/jobs.h"
#include "cli/levelOptions.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "compute/contours.h"
#include "write/lineWriter.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{"geojson", "csv"};

struct ContourOptions {
    OutputOptions output;
    LevelOptions levels;
};

int runContour(const ContourOptions& options) {
    return runJobs(planJobs(options.output, formats), options.output.workers,
                   [&](const Job& job, Reporter& reporter) {
                       const GridFile file = readGridFile(job.input);
                       const LevelPlan plan = planLevels(options.levels, file);
                       reporter.tell(job.input, plan.notice);
                       const ContourSet set = drawContours(onGlobe(file), plan.levels);
                       writeOutput(job.output, job.format == "csv" ? commaSeparated(set) : geoJson(set));
                   });
}

}  // namespace

void addContourCommand(Program& program) {
    const auto options = std::make_shared<ContourOptions>();
    Command command = program.addCommand("contour", "Write the contour lines of grids as GeoJSON or CSV");
    addOutputOptions(command, options->output, formats, "Grid files (diamond 4)");
    addLevelOptions(command, options->levels);
    command.onRun([options] { return runContour(*options); });
}

}  // namespace velmar::tool
