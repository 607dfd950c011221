#include <fmt/format.h>

#include "base/progress.h"
#include "cli/command.h"
#include "cli/jobs.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "velmarBaseA.h"

int main(int argc, char** argv) try {
    using namespace velmar::tool;
    guardStandardStreams();
    // Standard output belongs to the results.
    velmar::base::setProgressEnabled(false);

    Program program("velmar", "Reads, analyses, contours and draws meteorological data files.",
                    VELMAR_VERSION);
    addInfoCommand(program);
    addContourCommand(program);
    addShadeCommand(program);
    addChartCommand(program);
    addAnalyseCommand(program);
    addRefineCommand(program);
    addRainCommand(program);
    addSoundingCommand(program);
    addRegionCommand(program);
    addWindCommand(program);
    addStreamlinesCommand(program);
    addTrianglesCommand(program);
    addDistanceCommand(program);
    return program.run(argc, argv);
} catch (const std::exception& error) {
    velmar::tool::writeStandardError(fmt::format("velmar: {}\n", error.what()));
    return velmar::tool::someFilesFailed;
}
