#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <memory>

#include "cli/arguments.h"
#include "cli/jobs.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "common/text.h"
#include "grid/refine.h"
#include "write/gridWriter.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{gridFormat, "csv"};

struct RefineOptions {
    OutputOptions output;
    grid::RefinementFactors factors;
};

constexpr int mostParts = 100;
/// A grid of more points is no use to anybody.
constexpr int mostPoints = 50'000'000;

grid::RefinementFactors parseFactors(const std::string& text) {
    const auto numbers = parseNumbers("--factor", text);
    const auto isFactor = [](double x) { return x == std::floor(x) && x >= 1 && x <= mostParts; };
    if (numbers.size() > 2 || !std::ranges::all_of(numbers, isFactor))
        throw CLI::ValidationError(
            "--factor", fmt::format("\"{}\" is not one or two whole numbers from 1 to {}", text, mostParts));
    return {static_cast<int>(numbers.front()), static_cast<int>(numbers.back())};
}

/// Columns that a grid that circles the globe gets for the slopes on its seam: its last one before the first,
/// its first two behind the last.
constexpr int columnsBefore = 1;
constexpr int columnsBehind = 2;

grid::Grid wrapped(const grid::GridView& grid) {
    grid::Grid wide{{}, columnsBefore + grid.nx + columnsBehind, grid.ny};
    wide.values.reserve(wide.view().size());
    for (int row = 0; row < wide.ny; ++row)
        for (int column = 0; column < wide.nx; ++column)
            wide.values.push_back(grid.at((column - columnsBefore + grid.nx) % grid.nx, row));
    return wide;
}

/// Keeps nx of a grid's columns, in place.
void keepColumns(float* values, const grid::GridView& grid, int first, int nx) {
    for (int row = 0; row < grid.ny; ++row) values = std::copy_n(grid.row(row) + first, nx, values);
}

/// The header of the grid with each interval in parts.
files::FieldHeader refinedHeader(files::FieldHeader field, const grid::RefinementFactors& factors) {
    grid::Lattice& lattice = field.lattice;
    const bool circles = circlesGlobe(field);
    field.nx = circles ? field.nx * factors.x : (field.nx - 1) * factors.x + 1;
    field.ny = (field.ny - 1) * factors.y + 1;
    lattice.longitudeStep /= static_cast<float>(factors.x);
    lattice.latitudeStep /= static_cast<float>(factors.y);
    if (circles)
        lattice.endLongitude =
            lattice.startLongitude + static_cast<float>(field.nx - 1) * lattice.longitudeStep;
    return field;
}

/// Refines a grid; what its header says of titles, times and levels stays.
void refineGrid(GridFile& file, const grid::RefinementFactors& factors) {
    files::FieldHeader& field = file.header.field;
    if (file.values.size() == 0)
        throw Problem(fmt::format("its header gives it {} columns and {} rows", field.nx, field.ny));
    if (static_cast<double>(field.nx) * factors.x * field.ny * factors.y > mostPoints)
        throw Problem(fmt::format("the refined grid would have more than {} points", mostPoints));
    const bool circles = circlesGlobe(field);
    field = refinedHeader(field, factors);
    const grid::Grid wide = circles ? wrapped(file.values) : grid::Grid{};
    const grid::GridView grid = circles ? wide.view() : file.values;
    const int columns = (grid.nx - 1) * factors.x + 1;
    base::Floats fine = base::allocateFloats(grid::valueCount(columns, field.ny));
    grid::refineInto(grid, grid::missingInFiles, factors, grid::CubicForm::descending, fine.get());
    if (circles)
        keepColumns(fine.get(), {fine.get(), columns, field.ny}, columnsBefore * factors.x, field.nx);
    file.storage = std::move(fine);
    file.values = {file.storage.get(), field.nx, field.ny};
}

int runRefine(const RefineOptions& options) {
    return runJobs(planJobs(options.output, formats), options.output.workers, [&](const Job& job, Reporter&) {
        GridFile file = readGridFile(job.input);
        refineGrid(file, options.factors);
        writeOutput(job.output, job.format == "csv" ? commaSeparated(file) : gridFileText(file));
    });
}

}  // namespace

void addRefineCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<RefineOptions>();
    CLI::App* command = program.add_subcommand("refine", "Make grids finer by cubic interpolation");
    addOutputOptions(*command, options->output, formats, "Grid files (diamond 4)");
    command
        ->add_option_function<std::string>(
            "--factor", [options](const std::string& text) { options->factors = parseFactors(text); },
            "Into how many parts to divide the grid's intervals, as 4 or, along rows and along columns, 4,2")
        ->required();
    command->footer(
        "Grid points keep their values; between them, values can overshoot near steep steps. An interval\n"
        "with an end without data has none inside.");
    command->callback([options, &exitCode] { exitCode = runRefine(*options); });
}

}  // namespace velmar::tool
