#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "commands.h"
#include "frame/progress.h"
#include "jobs.h"
#include "problem.h"

int main(int argc, char** argv) try {
    using namespace velmar::tool;
    // Standard output belongs to the results.
    velmar::frame::setProgressEnabled(false);

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
        return program.exit(error) == 0 ? success : wrongUsage;
    }
    return exitCode;
} catch (const std::exception& error) {
    fmt::print(stderr, "velmar: {}\n", error.what());
    return velmar::tool::someFilesFailed;
}
