#pragma once

#include <cstddef>
#include <map>
#include <mutex>
#include <type_traits>
#include <utility>

namespace velmar::base {

/// How many threads a call may use, the caller's own among them. At first what the environment variable VELMAR_THREADS
/// says, which is read once; without it as many as the machine has processors, but at most 16.
std::size_t threadLimit() noexcept;

/// The work, in nanoseconds, for which a thread is worth starting: that takes some 30 microseconds, and its first touch
/// of the data as much again.
inline constexpr double worthOfThread = 5e5;

/// Sets the limit, for programs that run several calls side by side; 0 counts as 1. Tests set what a thread is worth as
/// well, so that little work is shared too.
void setThreadLimit(std::size_t threads, double worth = worthOfThread) noexcept;

/// Work is not shared among threads while this is there, in the thread that has made it.
class UnsharedWork {
public:
    UnsharedWork() noexcept;
    UnsharedWork(const UnsharedWork&) = delete;
    UnsharedWork& operator=(const UnsharedWork&) = delete;
    ~UnsharedWork();

private:
    bool before_;
};

/// Whether work on so many parts would be shared among threads.
bool isShared(std::size_t count, double nanosecondsEach) noexcept;

namespace detail {

/// A work function and what it works on.
struct RunOfParts {
    void (*call)(const void* work, std::size_t first, std::size_t last);
    const void* work;
};

void shareParts(std::size_t count, double nanosecondsEach, const RunOfParts& run);

}  // namespace detail

/// Shares parts of some work, numbered from 0, among threads: `work(first, last)` does the parts from first to before
/// last, and is called with every part once. Parts must not depend on each other. They are handed out in rising order.
///
/// A part that shares out work of its own does that itself. Threads are started only where there is work for them, and all have ended on return. Work goes on without those
/// that cannot be started. An exception of a part is thrown on once the threads have ended; parts not begun by then
/// are left undone.
///
///   nanosecondsEach  what a part takes, roughly
template <class Work>
void shareWork(std::size_t count, double nanosecondsEach, const Work& work) {
    const auto call = [](const void* context, std::size_t first, std::size_t last) {
        (*static_cast<const Work*>(context))(first, last);
    };
    detail::shareParts(count, nanosecondsEach, {call, &work});
}

/// The same for work that returns something: what came of the parts, by their first ones.
template <class Work>
auto collectWork(std::size_t count, double nanosecondsEach, const Work& work) {
    std::map<std::size_t, std::invoke_result_t<const Work&, std::size_t, std::size_t>> results;
    std::mutex resultsLock;
    shareWork(count, nanosecondsEach, [&](std::size_t first, std::size_t last) {
        auto result = work(first, last);
        const std::scoped_lock lock(resultsLock);
        results.emplace(first, std::move(result));
    });
    return results;
}

}  // namespace velmar::base
