#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "cli/arguments.h"
#include "cli/jobs.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "compute/windQuantity.h"
#include "write/gridWriter.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{gridFormat, "csv"};

constexpr const char* explanation =
    "Divergence and vorticity are in 1/s and taken from centred differences on the sphere. They are\n"
    "missing beside points without wind, on the edges of the grid, unless that is a seam in a grid round\n"
    "the globe, and at the poles. The contour levels in the header of a grid file suit nearly all values,\n"
    "but may leave out a few extreme ones.";

struct WindOptions {
    OutputOptions output;
    WindQuantity quantity = WindQuantity::speed;
    float scale = 1;
};

float parseScale(const std::string& text) {
    const auto numbers = parseNumbers("--scale", text);
    const auto scale = static_cast<float>(numbers.front());
    if (numbers.size() != 1 || scale == 0)
        throw CLI::ValidationError("--scale", fmt::format("\"{}\" is not one number other than 0", text));
    return scale;
}

int runWind(const WindOptions& options) {
    return runJobs(
        planJobs(options.output, formats), options.output.workers, [&](const Job& job, Reporter& reporter) {
            const GridFile grid =
                windQuantity(readWindFile(readFileHead(job.input)), options.quantity, options.scale);
            if (std::none_of(grid.values.values, grid.values.values + grid.values.size(), isPresent))
                reporter.tell(job.input,
                              fmt::format("there is no point with a {}", quantityName(options.quantity)));
            writeOutput(job.output, job.format == "csv" ? commaSeparated(grid) : gridFileText(grid));
        });
}

}  // namespace

void addWindCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<WindOptions>();
    CLI::App* command = program.add_subcommand(
        "wind", "Compute divergence, vorticity or speed of wind grids; write grid files or CSV");
    addOutputOptions(*command, options->output, formats, "Wind grids (diamond 11)");
    CLI::Option_group* const quantities = command->add_option_group("Quantity");
    const auto addQuantity = [&](WindQuantity quantity, const char* description) {
        quantities->add_flag_callback(
            fmt::format("--{}", quantityName(quantity)), [=] { options->quantity = quantity; }, description);
    };
    addQuantity(WindQuantity::divergence, "Horizontal divergence, 1/s");
    addQuantity(WindQuantity::vorticity, "Relative vorticity, 1/s");
    addQuantity(WindQuantity::speed, "Wind speed, m/s");
    quantities->require_option(1);
    command->add_option_function<std::string>(
        "--scale", [options](const std::string& text) { options->scale = parseScale(text); },
        "Multiply the values by this number, as 1e5 for handy ones of divergence and vorticity (default 1)");
    command->footer(explanation);
    command->callback([options, &exitCode] { exitCode = runWind(*options); });
}

}  // namespace velmar::tool
