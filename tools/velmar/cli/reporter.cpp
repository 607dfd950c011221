#include "cli/reporter.h"

#include <fmt/format.h>
#include <unistd.h>

#include <iterator>

#include "cli/output.h"

namespace velmar::tool {
namespace {

std::string lineAbout(std::string_view file, std::string_view sentence) {
    return sentence.empty() ? std::string() : fmt::format("velmar: {}: {}\n", file, sentence);
}

}  // namespace

void tellUser(std::string_view file, std::string_view sentence) {
    writeStandardError(lineAbout(file, sentence));
}

JobLine::JobLine(std::size_t jobs) : jobs_(jobs), showsBar_(jobs > 1 && isatty(STDERR_FILENO) == 1) {
    drawBar();
}

void JobLine::tell(std::size_t job, std::string_view file, std::string_view sentence) {
    const std::string words = lineAbout(file, sentence);
    const std::lock_guard lock(mutex_);
    jobs_[job].words += words;
    if (job == turn_) speak(jobs_[job]);
}

void JobLine::awaitTurn(std::size_t job) {
    std::unique_lock lock(mutex_);
    turnChanged_.wait(lock, [&] { return turn_ == job; });
}

void JobLine::finish(std::size_t job, bool failed) {
    const std::lock_guard lock(mutex_);
    jobs_[job].isDone = true;
    anyFailed_ = anyFailed_ || failed;
    ++done_;
    while (turn_ < jobs_.size() && jobs_[turn_].isDone)
        if (++turn_ < jobs_.size()) speak(jobs_[turn_]);
    drawBar();
    turnChanged_.notify_all();
}

void JobLine::speak(QueuedJob& job) {
    if (job.words.empty()) return;
    eraseBar();
    writeStandardError(job.words);
    job.words.clear();
    drawBar();
}

void JobLine::eraseBar() const {
    if (showsBar_) writeStandardError("\r\033[K");
}

void JobLine::drawBar() const {
    if (!showsBar_) return;
    constexpr std::string_view whole = "========================================";
    const std::string_view filled = whole.substr(0, whole.size() * done_ / jobs_.size());
    fmt::memory_buffer bar;
    fmt::format_to(std::back_inserter(bar), "\r[{:<{}}] {} of {}", filled, whole.size(), done_, jobs_.size());
    writeStandardError({bar.data(), bar.size()});
}

}  // namespace velmar::tool
