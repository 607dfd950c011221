#include <CLI/CLI.hpp>
#include <memory>

#include "cli/jobs.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "read/soundingFile.h"
#include "write/soundingWriter.h"

namespace velmar::tool {
namespace {

const std::vector<std::string> formats{"txt", "json", "csv"};

constexpr const char* explanation =
    "K index (George 1960), total totals (Miller 1967), Showalter index and precipitable water are computed\n"
    "from the levels of each sounding; those that lack a level are left out. The lifted index is that of "
    "air\n"
    "from the lowest level. The freezing level is where the temperature first falls to 0 degrees C.\n"
    "Without -o and --out-dir the answer goes to standard output.";

struct SoundingOptions {
    OutputOptions output;
    std::optional<int> station;
    bool json = false;
};

/// The answers for several files, in one format.
struct Answers {
    std::string text;
    Json list = Json::array();

    void add(const CheckedSoundings& file, const std::string& format) {
        if (format == "json")
            list.push_back(soundingJson(file));
        else if (format == "csv")
            text += (text.empty() ? soundingHeading : "") + soundingRows(file);
        else
            text += (text.empty() ? "" : "\n") + soundingText(file);
    }
    /// Several files make an array in JSON, however many of them can be read.
    std::string bytes(const std::string& format, bool several) const {
        if (format != "json" || (list.empty() && !several)) return text;
        return (several ? list : list.front()).dump(2) + "\n";
    }
};

CheckedSoundings readSoundings(const Job& job, const SoundingOptions& options, Reporter& reporter) {
    CheckedSoundings file = readSoundingFile(readFileHead(job.input));
    reporter.tell(job.input, file.notice());
    if (options.station) keepStation(file, *options.station);
    return file;
}

/// All files to standard output, as one answer.
int printSoundings(const SoundingOptions& options) {
    const std::string& format = options.output.format.empty() ? formats.front() : options.output.format;
    std::vector<Job> jobs;
    for (const std::string& input : options.output.inputs) jobs.push_back({input, "-", format, {}});
    Answers answers;
    const int exitCode = runJobs(jobs, options.output.workers, [&](const Job& job, Reporter& reporter) {
        const CheckedSoundings file = readSoundings(job, options, reporter);
        reporter.awaitTurn();
        answers.add(file, format);
    });
    writeOutput("-", answers.bytes(format, jobs.size() > 1));
    return exitCode;
}

int runSounding(SoundingOptions& options) {
    OutputOptions& output = options.output;
    if (options.json && output.format.empty()) output.format = "json";
    if (output.folder.empty() && (output.output.empty() || output.output == "-"))
        return printSoundings(options);
    return runJobs(planJobs(output, formats), output.workers, [&](const Job& job, Reporter& reporter) {
        Answers answer;
        answer.add(readSoundings(job, options, reporter), job.format);
        writeOutput(job.output, answer.bytes(job.format, false));
    });
}

}  // namespace

void addSoundingCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<SoundingOptions>();
    CLI::App* command = program.add_subcommand(
        "sounding", "Print the levels of soundings and the indices computed from them");
    addOutputOptions(*command, options->output, formats, "Files of soundings (diamond 5, March 5)");
    command->add_option("--station", options->station, "Number of the one station to print (default: all)");
    command->add_flag("--json", options->json, "The same as --format json")->excludes("--format");
    command->footer(explanation);
    command->callback([options, &exitCode] { exitCode = runSounding(*options); });
}

}  // namespace velmar::tool
