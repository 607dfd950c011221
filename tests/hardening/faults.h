#pragma once

#include <cstddef>
#include <functional>

/// Allocations of the library that fail on demand: operator new, the C functions, and the opening of files.
namespace velmar::test::faults {

/// Which allocation of a call fails, counted from 1, and whether all behind it do too. 0: none.
struct Plan {
    long first = 0;
    bool lasting = false;
};

void plan(const Plan& plan);

/// Calls an export under the plan. Without one, any number of threads may call.
void during(const std::function<void()>& call);

/// What has become of the last plan.
struct Course {
    bool failed;       ///< the call came to the allocation that had to fail
    bool openingFile;  ///< the first that failed was the opening of a file
};
Course course();

/// What happens whenever the library opens a file to read it, just before. Empty: nothing.
void beforeOpening(std::function<void()> action);

/// What nobody has released.
struct Alive {
    long allocations;
    long bytes;
};
Alive alive();

/// For how many bytes one of the latest result blocks of this thread was allocated.
std::size_t bytesOf(const void* block);

}  // namespace velmar::test::faults
