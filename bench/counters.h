#pragma once

#include <benchmark/benchmark.h>

namespace velmar::bench {

/// Reports how many seconds one of the `count` values of an iteration takes: flat when cost grows with the
/// count.
inline void reportTimePerValue(benchmark::State& state, double count) {
    state.counters["perValue"] = benchmark::Counter(
        count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

}  // namespace velmar::bench
