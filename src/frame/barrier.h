#pragma once

#include <utility>

#include "frame/block.h"
#include "frame/outcome.h"
#include "frame/progress.h"

namespace velmar::frame {

/// The only way from an export into the library. Nothing crosses it: an exception, in practice a lack of
/// memory, becomes the export's failure result. Progress texts of the call are out when it returns.
template <class Result, class Body>
Result guarded(Result failure, Body&& body) noexcept {
    Result result = std::move(failure);
    try {
        result = std::forward<Body>(body)();
    } catch (...) {
    }
    flushProgress();
    return result;
}

/// The barrier of the exports that report failures in a block of one element; the body returns an
/// Outcome<ResultBlock>. The block for the code is taken first, so that a lack of memory can be reported too,
/// as outOfMemory.
template <class Body>
float* guardedReader(int outOfMemory, Body&& body) noexcept {
    return guarded<float*>(nullptr, [&] {
        ResultBlock error = allocateBlock(1);
        Outcome<ResultBlock> outcome =
            guarded(Outcome<ResultBlock>(Failure{outOfMemory}), std::forward<Body>(body));
        if (outcome) return outcome->release();
        error[0] = static_cast<float>(outcome.failure().code);
        return error.release();
    });
}

}  // namespace velmar::frame
