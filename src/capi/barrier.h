#pragma once

#include <mutex>
#include <utility>

#include "base/outcome.h"
#include "base/progress.h"
#include "capi/block.h"

namespace velmar::capi {

/// The lock at which exports wait for each other, whatever thread they are called from, because what they keep between
/// calls is shared by the whole process. It is recursive: a barrier may stand within another one.
inline std::recursive_mutex& door() {
    static std::recursive_mutex mutex;
    return mutex;
}

/// The only way from an export into the library. Nothing crosses it: an exception, in practice a lack of
/// memory, becomes the export's failure result. Progress texts of the call have been written when it returns.
template <class Result, class Body>
Result guarded(Result failure, Body&& body) noexcept {
    Result result = std::move(failure);
    const std::scoped_lock lock(door());
    try {
        result = std::forward<Body>(body)();
    } catch (...) {
    }
    base::flushProgress();
    return result;
}

/// The barrier of the exports that report failures in a block of one element; the body returns an
/// Outcome<ResultBlock>. The block for the code is taken first, so that a lack of memory can be reported too,
/// as outOfMemory.
template <class Body>
float* guardedReader(int outOfMemory, Body&& body) noexcept {
    return guarded<float*>(nullptr, [&] {
        ResultBlock error = base::allocateFloats(1);
        base::Outcome<ResultBlock> outcome =
            guarded(base::Outcome<ResultBlock>(base::Failure{outOfMemory}), std::forward<Body>(body));
        if (outcome) return outcome->release();
        error[0] = static_cast<float>(outcome.failure().code);
        return error.release();
    });
}

}  // namespace velmar::capi
