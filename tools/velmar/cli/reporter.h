#pragma once

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::tool {

/// Says something about a file on standard error; an empty sentence is not said.
void tellUser(std::string_view file, std::string_view sentence);

/// The jobs of a call, which stand in line: several are done at a time, but each is heard in its turn, when all jobs
/// before it are done. Shows a progress bar where standard error is a terminal and there is more than one job.
class JobLine {
public:
    explicit JobLine(std::size_t jobs);
    JobLine(const JobLine&) = delete;
    JobLine& operator=(const JobLine&) = delete;
    ~JobLine() { eraseBar(); }

    /// Says something about a job's file as soon as it is the job's turn.
    void tell(std::size_t job, std::string_view file, std::string_view sentence);
    /// Returns when it is the job's turn.
    void awaitTurn(std::size_t job);
    /// Ends a job, and its turn.
    void finish(std::size_t job, bool failed);
    bool anyFailed() const { return anyFailed_; }

private:
    struct QueuedJob {
        std::string words;  ///< what has been said before its turn
        bool isDone = false;
    };

    void speak(QueuedJob& job);
    void eraseBar() const;
    void drawBar() const;

    std::mutex mutex_;
    std::condition_variable turnChanged_;
    std::vector<QueuedJob> jobs_;
    std::size_t turn_ = 0;
    std::size_t done_ = 0;
    bool anyFailed_ = false;
    bool showsBar_;
};

/// What a job has to do with the others of its call.
class Reporter {
public:
    Reporter(JobLine& line, std::size_t job) : line_(line), job_(job) {}

    /// Says something about a file, behind all that the jobs before have to say; an empty sentence is not said.
    void tell(std::string_view file, std::string_view sentence) { line_.tell(job_, file, sentence); }
    /// Waits until all jobs before are done. What jobs add to, or take from each other, is touched after that only,
    /// so that it comes out as if they were done one after another.
    void awaitTurn() { line_.awaitTurn(job_); }

private:
    JobLine& line_;
    std::size_t job_;
};

}  // namespace velmar::tool
