#include <gmock/gmock.h>

#include <array>
#include <set>
#include <thread>

#include "base/threads.h"
#include "calls.h"
#include "support/ownFolder.h"
#include "support/quiet.h"
#include "support/said.h"

namespace {

using namespace velmar::test;

using Threads = InOwnFolder;

/// Each thread sees what a lone caller sees. The preset `thread` looks for races as well.
TEST_F(Threads, MakeAnyCallAtAnyTime) {
    // Their calls here look at what is kept between calls, or replace it.
    const std::set<std::string> lone{"readRegionData", "readVelmarData5"};
    // Calls between theirs show in their results.
    const std::set<std::string> dependent{"contour2DRaw", "SHClipPntNum", "readWindData", "streamAnalyse"};
    constexpr std::size_t count = 4;
    std::array<std::set<std::string>, count> disturbed;
    {
        const Quiet quiet;
        for (const Call& call : calls()) runWell(call);
        std::vector<Seen> alone;
        for (const Call& call : calls()) alone.push_back(runWell(call));

        std::vector<std::jthread> threads;
        for (std::size_t thread = 0; thread < count; ++thread) {
            threads.emplace_back([&, thread] {
                for (std::size_t k = 0; k < 5 * calls().size(); ++k) {
                    const std::size_t which = (thread * calls().size() / count + k) % calls().size();
                    const Call& call = calls()[which];
                    if (lone.contains(call.name)) continue;
                    if (runWell(call) != alone[which]) disturbed[thread].insert(call.name);
                }
            });
        }
    }
    for (std::set<std::string>& names : disturbed) {
        std::erase_if(names, [&](const std::string& name) { return dependent.contains(name); });
        EXPECT_THAT(names, testing::IsEmpty());
    }
}

/// Results and printed texts, with every bit of work shared among threads.
TEST_F(Threads, OfACallChangeNothingThatIsSeen) {
    const auto seenWith = [](std::size_t threads) {
        velmar::base::setThreadLimit(threads, 0.0);
        std::vector<std::pair<Seen, std::string>> seen;
        for (const Call& call : calls()) {
            Seen outcome;
            std::string printed = said([&] { outcome = runWell(call); });
            seen.emplace_back(std::move(outcome), std::move(printed));
        }
        return seen;
    };
    seenWith(1);  // Later calls find what the first leave behind.
    const auto alone = seenWith(1);
    for (const std::size_t threads : {2, 3, 8}) {
        const auto shared = seenWith(threads);
        for (std::size_t k = 0; k < shared.size(); ++k) {
            EXPECT_TRUE(shared[k].first == alone[k].first) << calls()[k].name << ", " << threads;
            EXPECT_EQ(shared[k].second, alone[k].second) << calls()[k].name << ", " << threads;
        }
    }
    velmar::base::setThreadLimit(3, 0.0);
}

}  // namespace
