#include "cli/jobs.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <filesystem>
#include <mutex>
#include <new>
#include <thread>

#include "base/threads.h"
#include "cli/callFiles.h"
#include "cli/command.h"
#include "common/text.h"

namespace velmar::tool {
namespace {

namespace fs = std::filesystem;

bool isThreeDigits(std::string_view text) {
    return text.size() == 3 && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string formatOfEnding(const std::string& output, const std::vector<std::string>& formats) {
    std::string ending = fs::path(output).extension().string();
    std::ranges::transform(ending, ending.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
    if (!ending.empty() && isThreeDigits(std::string_view(ending).substr(1)))
        ending = std::string(".") + gridFormat;
    const auto format = std::ranges::find_if(formats, [&](const auto& name) { return ending == "." + name; });
    if (format == formats.end())
        throw UsageError("-o", fmt::format("\"{}\" should end in .{}", output, fmt::join(formats, ", .")));
    return *format;
}

Job planSingle(const OutputOptions& options, const std::vector<std::string>& formats) {
    Job job{
        .input = options.inputs.front(), .output = options.output, .format = options.format, .obstacle = {}};
    if (job.output == "-") {
        if (job.format.empty()) job.format = formats.front();
        return job;
    }
    const std::string format = formatOfEnding(job.output, formats);
    if (!job.format.empty() && job.format != format)
        throw UsageError("--format", fmt::format("\"{}\" is not the ending of {}", job.format, job.output));
    job.format = format;
    return job;
}

/// The ending is added to the input's whole name, because the part behind its dot is often the forecast hour.
std::vector<Job> planFolder(const OutputOptions& options, const std::string& format) {
    std::vector<Job> jobs;
    for (const std::string& input : options.inputs) {
        const fs::path output =
            fs::path(options.folder) / (fs::path(input).filename().string() + "." + format);
        jobs.push_back({.input = input, .output = output.string(), .format = format, .obstacle = {}});
    }
    return jobs;
}

void claimOutputs(std::vector<Job>& jobs, CallFiles& files) {
    for (Job& job : jobs) {
        try {
            files.claim(job.output, job.input);
        } catch (const Problem& problem) {
            job.obstacle = problem.what();
        }
    }
}

void makeFolder(const std::string& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (!fs::is_directory(folder, error))
        throw UsageError("--out-dir", fmt::format("the folder \"{}\" cannot be made", folder));
}

/// Jobs that workers fetch in their order.
class JobQueue {
public:
    JobQueue(const std::vector<Job>& jobs, const std::function<void(const Job&, Reporter&)>& work)
        : jobs_(jobs), work_(work), line_(jobs.size()) {}

    /// Does all jobs; what cannot be told to the user goes on as an exception.
    void run(std::size_t workers) {
        std::vector<std::jthread> others;
        try {
            while (others.size() + 1 < workers) others.emplace_back([this] { doJobs(); });
        } catch (const std::exception&) {
            // Fewer threads do the work as well.
        }
        doJobs();
        others.clear();
        if (failure_) std::rethrow_exception(failure_);
    }
    bool anyFailed() const { return line_.anyFailed(); }

private:
    void doJobs() {
        for (std::size_t k = next_++; k < jobs_.size(); k = next_++) line_.finish(k, !succeeds(k));
    }

    /// Does a job; whether it came to a good end.
    bool succeeds(std::size_t k) try {
        Reporter reporter(line_, k);
        try {
            if (!jobs_[k].obstacle.empty()) throw Problem(jobs_[k].obstacle);
            work_(jobs_[k], reporter);
            return true;
        } catch (const std::bad_alloc&) {
            reporter.tell(jobs_[k].input, "there is not enough memory for it");
        } catch (const std::exception& error) {
            reporter.tell(jobs_[k].input, error.what());
        }
        return false;
    } catch (...) {
        const std::lock_guard lock(mutex_);
        failure_ = std::current_exception();
        return false;
    }

    const std::vector<Job>& jobs_;
    const std::function<void(const Job&, Reporter&)>& work_;
    JobLine line_;
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_;
    std::exception_ptr failure_;
};

}  // namespace

void addWorkersOption(Command& command, std::size_t& workers) {
    command.addOption("-j,--jobs", workers, "How many files to work on at a time (default: as many as cores)")
        .positive();
}

void addOutputOptions(Command& command, OutputOptions& options, const std::vector<std::string>& formats,
                      const std::string& inputs) {
    command.addOption("FILE", options.inputs, inputs).required();
    command.addOption(
        "-o,--output", options.output,
        fmt::format("Output file, its ending one of .{}; - is standard output", fmt::join(formats, ", .")));
    command.addOption("--out-dir", options.folder,
                      "Folder for the outputs of several files: each gets its input's name and an ending");
    command
        .addOption("--format", options.format,
                   fmt::format("Format for -o - and --out-dir (default {})", formats.front()))
        .oneOf(formats);
    addWorkersOption(command, options.workers);
}

std::vector<Job> planJobs(const OutputOptions& options, const std::vector<std::string>& formats,
                          CallFiles& files) {
    if (options.output.empty() == options.folder.empty())
        throw UsageError("output", "say either -o FILE or --out-dir FOLDER");
    std::vector<Job> jobs;
    if (!options.output.empty()) {
        if (options.inputs.size() > 1)
            throw UsageError("-o", "it takes one input; for several there is --out-dir");
        jobs.push_back(planSingle(options, formats));
    } else {
        makeFolder(options.folder);
        jobs = planFolder(options, options.format.empty() ? formats.front() : options.format);
    }
    claimOutputs(jobs, files);
    return jobs;
}

std::vector<Job> planJobs(const OutputOptions& options, const std::vector<std::string>& formats) {
    CallFiles files(options);
    return planJobs(options, formats, files);
}

int runJobs(const std::vector<Job>& jobs, std::size_t workers,
            const std::function<void(const Job&, Reporter&)>& work) {
    const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
    const std::size_t atATime = std::min(workers > 0 ? workers : cores, jobs.size());
    // What a job shares out among threads must leave cores to the others.
    base::setThreadLimit(std::max<std::size_t>(base::threadLimit() / std::max<std::size_t>(atATime, 1), 1));
    JobQueue queue(jobs, work);
    queue.run(atATime);
    return queue.anyFailed() ? someFilesFailed : success;
}

}  // namespace velmar::tool
