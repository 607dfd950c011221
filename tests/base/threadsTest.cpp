#include "base/threads.h"

#include <gmock/gmock.h>

#include <atomic>
#include <new>
#include <numeric>
#include <vector>

namespace {

using namespace velmar::base;

class SharedWork : public testing::TestWithParam<std::size_t> {
protected:
    SharedWork() { setThreadLimit(GetParam(), 0.0); }
    ~SharedWork() override { setThreadLimit(3, 0.0); }
};

TEST_P(SharedWork, IsDoneOnceAndCollectedInOrder) {
    for (const std::size_t count : {0, 1, 2, 7, 64, 1000}) {
        std::vector<int> done(count);
        const auto runs = collectWork(count, 1.0, [&](std::size_t first, std::size_t last) {
            for (std::size_t k = first; k < last; ++k) ++done[k];
            std::vector<std::size_t> parts(last - first);
            std::iota(parts.begin(), parts.end(), first);
            return parts;
        });
        std::vector<std::size_t> collected;
        for (const auto& [first, parts] : runs) collected.insert(collected.end(), parts.begin(), parts.end());
        std::vector<std::size_t> all(count);
        std::iota(all.begin(), all.end(), std::size_t{0});
        EXPECT_EQ(collected, all);
        EXPECT_THAT(done, testing::Each(1));
    }
}

TEST_P(SharedWork, EndsWithTheExceptionOfAPart) {
    std::atomic<std::size_t> done{0};
    const auto work = [&](std::size_t first, std::size_t last) {
        done += last - first;
        if (first <= 40 && 40 < last) throw std::bad_alloc();
    };
    EXPECT_THROW(shareWork(100, 1.0, work), std::bad_alloc);
    EXPECT_LE(done, 100U);
}

INSTANTIATE_TEST_SUITE_P(AmongThreads, SharedWork, testing::Values(1, 2, 3, 8));

}  // namespace
