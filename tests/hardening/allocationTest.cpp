#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>

#include "calls.h"
#include "faults.h"
#include "support/files.h"
#include "support/freshLibrary.h"
#include "support/ownFolder.h"
#include "support/quiet.h"

namespace {

using namespace velmar::test;

TEST(Calls, AreThoseOfAllExports) {
    std::ifstream list(sample("../src/exports.txt"));
    const std::vector<std::string> exports(std::istream_iterator<std::string>(list), {});
    std::vector<std::string> called;
    for (const Call& call : calls()) called.emplace_back(call.name);
    std::ranges::sort(called);
    EXPECT_EQ(called, exports);
}

using OutOfMemory = InOwnFolder;

Seen runQuietly(const Call& call) {
    const Quiet quiet;
    return runWell(call);
}

/// Whether an outcome may come from a lack. A reader has no code when there is not even memory for that.
bool isFailure(const Seen& seen, const Call& call, const faults::Plan& plan) {
    const auto [failed, openingFile] = faults::course();
    if (!failed) return false;
    if (openingFile) return seen == call.refused;
    return std::ranges::count(call.noMemory, seen) > 0 || (plan.first == 1 && seen == "null");
}

struct Trial {
    bool failed;  ///< the call came to the allocation
    std::string fault;
};

/// Lets an allocation of a call fail. When the call fails too, the next one must be as if it had not been made.
Trial tryWithout(const faults::Plan& plan, const Call& call, const Seen& good) {
    resetLibrary();
    const long before = faults::alive().allocations;
    std::string_view fault;
    faults::plan(plan);
    const bool succeeded = [&] {
        const Seen seen = runQuietly(call);
        if (seen != good && !isFailure(seen, call, plan)) fault = "wrong outcome";
        return seen == good;
    }();
    const bool failed = faults::course().failed;
    faults::plan({});
    if (!succeeded && runQuietly(call) != good) fault = "the next call is wrong";
    resetLibrary();
    if (faults::alive().allocations != before) fault = "leak";
    return {failed, std::string(fault)};
}

TEST_F(OutOfMemory, CallsFailAsTheyShouldAndLoseNothing) {
    for (const Call& call : calls()) {
        resetLibrary();
        const Seen good = runQuietly(call);
        EXPECT_TRUE(call.sample == nullptr || good != call.refused) << call.name;
        const std::size_t files = openFiles();
        for (const bool lasting : {false, true}) {
            Trial trial{true, ""};
            long first = 0;
            while (trial.failed && trial.fault.empty()) trial = tryWithout({++first, lasting}, call, good);
            EXPECT_EQ(trial.fault, "") << call.name << ", allocation " << first << (lasting ? " and on" : "");
        }
        EXPECT_EQ(openFiles(), files) << call.name;
    }
}

}  // namespace
