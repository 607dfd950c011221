#include "base/threads.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <string_view>
#include <thread>
#include <utility>

#include "base/scanner.h"

namespace velmar::base {
namespace {

constexpr std::size_t mostByDefault = 16;
constexpr std::size_t mostThreads = 64;
/// So many runs for each thread: when one is held up, the others take over what it has not begun.
constexpr std::size_t runsPerThread = 8;

std::size_t limitAtFirst() {
    if (const char* const asked = std::getenv("VELMAR_THREADS"); asked != nullptr) {
        int threads = 0;
        if (TextScanner(std::string_view(asked)).read(threads) && threads > 0)
            return static_cast<std::size_t>(threads);
    }
    return std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, mostByDefault);
}

/// 0 until it is known.
std::atomic<std::size_t> limit{0};
std::atomic<double> nanosecondsPerThread{worthOfThread};

/// Whether this thread does work that is shared already, or not to be shared.
thread_local bool sharesNoMore = false;

/// Parts on their way to threads.
class Sharing {
public:
    Sharing(std::size_t count, std::size_t threads, const detail::RunOfParts& run)
        : count_(count), runLength_(std::max<std::size_t>(count / (threads * runsPerThread), 1)), run_(run) {}

    /// Does runs until none is left.
    void work() noexcept {
        const UnsharedWork noMore;
        for (std::size_t first = take(); first < count_; first = take()) {
            try {
                run_.call(run_.work, first, first + std::min(runLength_, count_ - first));
            } catch (...) {
                stopFor(std::current_exception());
            }
        }
    }

    void rethrow() const {
        if (failure_) std::rethrow_exception(failure_);
    }

private:
    std::size_t take() noexcept {
        std::size_t first = next_.load(std::memory_order_relaxed);
        while (first < count_ &&
               !next_.compare_exchange_weak(first, first + std::min(runLength_, count_ - first),
                                            std::memory_order_relaxed)) {
        }
        return first;
    }

    void stopFor(std::exception_ptr failure) noexcept {
        next_.store(count_, std::memory_order_relaxed);
        const std::scoped_lock lock(failureLock_);
        if (!failure_) failure_ = std::move(failure);
    }

    const std::size_t count_;
    const std::size_t runLength_;
    const detail::RunOfParts run_;
    std::atomic<std::size_t> next_{0};
    std::mutex failureLock_;
    std::exception_ptr failure_;
};

/// Threads that have ended when this does.
class Team {
public:
    explicit Team(std::size_t size, Sharing& sharing) noexcept {
        try {
            for (; started_ < size; ++started_) threads_[started_] = std::thread([&] { sharing.work(); });
        } catch (...) {
            // Those that have started, and the caller, do the work of the others.
        }
    }
    Team(const Team&) = delete;
    Team& operator=(const Team&) = delete;
    ~Team() {
        for (std::size_t k = 0; k < started_; ++k) threads_[k].join();
    }

private:
    std::array<std::thread, mostThreads> threads_;
    std::size_t started_ = 0;
};

/// How many threads work on so many parts.
std::size_t threadsFor(std::size_t count, double nanosecondsEach) noexcept {
    const double work = static_cast<double>(count) * nanosecondsEach;
    const double share = nanosecondsPerThread.load(std::memory_order_relaxed);
    std::size_t threads = sharesNoMore ? 1 : std::min(threadLimit(), count);
    while (threads > 1 && static_cast<double>(threads) * share > work) --threads;
    return threads;
}

}  // namespace

std::size_t threadLimit() noexcept {
    std::size_t known = limit.load(std::memory_order_relaxed);
    if (known == 0) {
        setThreadLimit(limitAtFirst());
        known = limit.load(std::memory_order_relaxed);
    }
    return known;
}

void setThreadLimit(std::size_t threads, double worth) noexcept {
    nanosecondsPerThread.store(worth, std::memory_order_relaxed);
    limit.store(std::clamp<std::size_t>(threads, 1, mostThreads), std::memory_order_relaxed);
}

UnsharedWork::UnsharedWork() noexcept : before_(std::exchange(sharesNoMore, true)) {}
UnsharedWork::~UnsharedWork() { sharesNoMore = before_; }

bool isShared(std::size_t count, double nanosecondsEach) noexcept {
    return threadsFor(count, nanosecondsEach) > 1;
}

namespace detail {

void shareParts(std::size_t count, double nanosecondsEach, const RunOfParts& run) {
    if (count == 0) return;
    const std::size_t threads = threadsFor(count, nanosecondsEach);
    if (threads < 2) {
        run.call(run.work, 0, count);
        return;
    }
    Sharing sharing(count, threads, run);
    {
        const Team team(threads - 1, sharing);
        sharing.work();
    }
    sharing.rethrow();
}

}  // namespace detail
}  // namespace velmar::base
