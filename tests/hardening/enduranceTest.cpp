#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "calls.h"
#include "faults.h"
#include "support/files.h"
#include "support/ownFolder.h"
#include "support/quiet.h"

namespace {

using namespace velmar::test;
namespace fs = std::filesystem;

/// What a process holds.
struct Holdings {
    long pages;            ///< of memory that is resident
    faults::Alive memory;  ///< that has been allocated
    std::size_t files;
};

Holdings holdings() {
    Holdings held{0, faults::alive(), openFiles()};
    std::ifstream("/proc/self/statm") >> held.pages >> held.pages;
    return held;
}

using Endurance = InOwnFolder;

/// Every export three times: as it should be, with nothing, and with half a file. A digest of what is seen.
std::size_t callAll() {
    std::size_t digest = 0;
    const auto add = [&](const Seen& seen) { digest = digest * 31 + std::hash<Seen>{}(seen); };
    for (const Call& call : calls()) {
        add(runWell(call));
        add(runBadly(call, "no/such/file"));
        const fs::path file = call.sample == nullptr ? "" : call.sample;
        add(runBadly(call, ("halves" / file.filename()).c_str()));
    }
    return digest;
}

TEST_F(Endurance, ManyCallsLeaveNothingBehind) {
    fs::create_directory("halves");
    for (const Call& call : calls()) {
        if (call.sample == nullptr) continue;
        const std::string whole = textOf(sample(call.sample));
        std::ofstream("halves" / fs::path(call.sample).filename(), std::ios::binary)
            << whole.substr(0, whole.size() / 2);
    }
#if defined(__SANITIZE_ADDRESS__)
    constexpr int rounds = 100;
#else
    constexpr int rounds = 640;
    ASSERT_GE(rounds * 3 * calls().size(), 100000U);
#endif
    const Quiet quiet;
    callAll();  // Later calls find what the first leave behind: factors, colours, the first map.
    const std::size_t first = callAll();
    Holdings early{};
    for (int round = 2; round < rounds; ++round) {
        if (round == rounds / 10) early = holdings();
        ASSERT_EQ(callAll(), first) << "round " << round;
    }
    const Holdings late = holdings();
    EXPECT_EQ(late.memory.allocations, early.memory.allocations);
    // The allocator may round a size up in another way. A byte a round is more, or a page for each hundred rounds.
    constexpr long tolerance = 500;
    EXPECT_LE(late.memory.bytes, early.memory.bytes + tolerance);
    EXPECT_EQ(late.files, early.files);
#if !defined(__SANITIZE_ADDRESS__)
    constexpr long pages = 32;
    EXPECT_LE(late.pages, early.pages + pages);
#endif
}

}  // namespace
