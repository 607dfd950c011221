#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>

#include "calls.h"
#include "faults.h"
#include "parts.h"
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

/// The bytes that a process holds behind a good call, without those that calls of usual size work in.
long heldBehind(const Call& call) {
    resetLibrary();
    runQuietly(call);
    velmar::capi::state().contours.release();
    velmar::capi::state().shading.release();
    return faults::alive().bytes;
}

/// Lets an allocation of a call fail. When the call fails too, it must leave nothing behind, and the next one must be as
/// if it had not been made.
Trial tryWithout(const faults::Plan& plan, const Call& call, const Seen& good, long held) {
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
    if (!succeeded && faults::alive().bytes > held) fault = "memory is not given back";
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
        const long held = heldBehind(call);
        for (const bool lasting : {false, true}) {
            Trial trial{true, ""};
            long first = 0;
            while (trial.failed && trial.fault.empty())
                trial = tryWithout({++first, lasting}, call, good, held);
            EXPECT_EQ(trial.fault, "") << call.name << ", allocation " << first << (lasting ? " and on" : "");
        }
        EXPECT_EQ(openFiles(), files) << call.name;
    }
}

TEST(LargeCalls, GiveTheirMemoryBack) {
    const Quiet quiet;
    constexpr int side = 1500;
    std::vector<float> board(side * side);
    for (std::size_t k = 0; k < board.size(); ++k) board[k] = static_cast<float>((k + k / side) % 2);
    const std::vector<float> plain(side * side, 1);
    const float level = 0.5F;
    resetLibrary();
    const long held = faults::alive().bytes;
    freecPointer(contour2DRaw(board.data(), 9999, side, side, 2, 0, 0, 0, &level, 1, 0, 0, 1, 1));
    freecPointer(velmarCntrShad(plain.data(), side, side, &level, colours.data(), 1, 9999, 0, 0, 1, 1, 0));
    EXPECT_EQ(faults::alive().bytes, held);
}

}  // namespace
