#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <sstream>

#include "base/progress.h"
#include "cli/jobs.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "common/text.h"
#include "velmarBaseA.h"

int main(int argc, char** argv) try {
    using namespace velmar::tool;
    guardStandardStreams();
    // Standard output belongs to the results.
    velmar::base::setProgressEnabled(false);

    CLI::App program{"Reads, analyses, contours and draws meteorological data files."};
    program.name("velmar");
    program.set_version_flag("--version", "velmar " VELMAR_VERSION);
    program.require_subcommand(1);
    int exitCode = success;
    addInfoCommand(program, exitCode);
    addContourCommand(program, exitCode);
    addShadeCommand(program, exitCode);
    addChartCommand(program, exitCode);
    addAnalyseCommand(program, exitCode);
    addRefineCommand(program, exitCode);
    addRainCommand(program, exitCode);
    addSoundingCommand(program, exitCode);
    addRegionCommand(program, exitCode);
    addWindCommand(program, exitCode);
    addStreamlinesCommand(program, exitCode);
    addTrianglesCommand(program, exitCode);
    addDistanceCommand(program, exitCode);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        std::ostringstream answer;
        std::ostringstream complaint;
        const int code = program.exit(error, answer, complaint);
        writeStandardError(complaint.str());
        writeOutput("-", answer.str());
        return code == 0 ? success : wrongUsage;
    }
    return exitCode;
} catch (const std::exception& error) {
    velmar::tool::writeStandardError(fmt::format("velmar: {}\n", error.what()));
    return velmar::tool::someFilesFailed;
}
