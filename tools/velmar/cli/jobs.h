#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "cli/reporter.h"

namespace CLI {
class App;
}

namespace velmar::tool {

class CallFiles;

/// Where a command's results go, as the user said it.
struct OutputOptions {
    std::vector<std::string> inputs;
    std::vector<std::string> furtherInputs;  ///< what else is read: maps
    std::string output;                      ///< a file, or "-" for standard output
    std::string folder;
    std::string format;
    std::size_t workers = 0;  ///< how many files are worked on at a time; 0: as many as there are cores
};

/// The format of grid files. Any three digits are its ending: they mostly tell the forecast hour.
inline constexpr const char* gridFormat = "000";

/// One file to be worked on.
struct Job {
    std::string input;
    std::string output;
    std::string format;
    std::string obstacle;  ///< why it cannot be done; empty when it can
};

/// Exit codes of the program.
enum ExitCode { success = 0, someFilesFailed = 1, wrongUsage = 2 };

/// Adds -j, the number of files that are worked on at a time.
void addWorkersOption(CLI::App& command, std::size_t& workers);

/// Adds FILE..., -o, --out-dir, --format and -j to a command. The first of the formats is the one that is used
/// where none is said. The description says what the inputs are.
void addOutputOptions(CLI::App& command, OutputOptions& options, const std::vector<std::string>& formats,
                      const std::string& inputs);

/// Finds the output and its format for every input, and claims it. Throws CLI::ValidationError when the options
/// do not fit together.
std::vector<Job> planJobs(const OutputOptions& options, const std::vector<std::string>& formats,
                          CallFiles& files);

/// The same for commands that write no other files.
std::vector<Job> planJobs(const OutputOptions& options, const std::vector<std::string>& formats);

/// Does the jobs, so many at a time, as long as there are threads for it. A Problem with one file is reported and does
/// not stop the others. What is said and the exit code, which is returned, are those of one job after another.
int runJobs(const std::vector<Job>& jobs, std::size_t workers,
            const std::function<void(const Job&, Reporter&)>& work);

}  // namespace velmar::tool
