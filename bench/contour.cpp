// Contour lines: choice of levels, refinement, tracing, and the centres of highs and lows.
#include <benchmark/benchmark.h>

#include "contour/levels.h"
#include "counters.h"
#include "fields.h"
#include "grid/refine.h"
#include "velmarBaseA.h"

namespace {

using namespace velmar;
using bench::Field;
using bench::Levels;

constexpr float missing = 9999.0F;

int side(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

/// Number of values of the square grid that the benchmark runs on.
double squareSize(const benchmark::State& state) {
    return static_cast<double>(state.range(0)) * static_cast<double>(state.range(0));
}

void chooseLevels(benchmark::State& state) {
    const Field field = bench::smoothField(side(state));
    const contour::LevelRequest request{contour::LevelMode::automatic, 0, 0, 0, {}, 13};
    for (auto _ : state) {
        benchmark::DoNotOptimize(contour::chooseLevels(field.view(), missing, request).values.data());
    }
    bench::reportTimePerValue(state, squareSize(state));
}

void refineGrid(benchmark::State& state) {
    const Field field = bench::smoothField(side(state));
    const auto factors = grid::chooseFactors(field.side, field.side);
    std::size_t refined = 0;
    for (auto _ : state) refined = grid::refine(field.view(), missing, factors).values.size();
    // Per value of the refined grid: the factors differ from size to size.
    bench::reportTimePerValue(state, static_cast<double>(refined));
}

void reportLines(benchmark::State& state, const float* block) {
    state.counters["lines"] = block[1];
    state.counters["points"] = (block[0] - 15 - 3 * block[1] - static_cast<float>(squareSize(state))) / 2;
}

template <auto contourExport>
void drawLines(benchmark::State& state, Field (*makeField)(int), float middleLevel) {
    const Field field = makeField(side(state));
    const Levels levels = bench::levelsAround(middleLevel);
    for (auto _ : state) {
        float* block = contourExport(field.values.data(), missing, field.side, field.side, 2, 0, 0, 0,
                                     levels.data(), static_cast<int>(levels.size()), 0, 0, 1, 1);
        if (!block) return state.SkipWithError("there is no result");
        reportLines(state, block);
        cntrFreeLineVar(block);
    }
    bench::reportTimePerValue(state, squareSize(state));
}

constexpr auto refineAndTrace = drawLines<contour2D>;
constexpr auto trace = drawLines<contour2DRaw>;

void centres(benchmark::State& state, Field (*makeField)(int)) {
    const Field field = makeField(side(state));
    for (auto _ : state) {
        float* block = findCenters(field.values.data(), missing, field.side, field.side, 0, 0, 0, 1, 1);
        if (!block) return state.SkipWithError("there is no result");
        state.counters["centres"] = block[0];
        freecPointer(block);
    }
    bench::reportTimePerValue(state, squareSize(state));
}

/// A level far above every field.
constexpr float unreached = 1000.0F;

BENCHMARK(chooseLevels)->ArgsProduct({{250, 1000, 4000}})->Unit(benchmark::kMillisecond);
BENCHMARK(refineGrid)->ArgsProduct({{40, 100, 200, 400}})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(refineAndTrace, smooth, bench::smoothField, 0)
    ->ArgsProduct({{40, 100, 200, 400}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(trace, smooth, bench::smoothField, 0)
    ->ArgsProduct({{250, 500, 1000, 2000, 4000, 6000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(trace, unreached, bench::smoothField, unreached)
    ->ArgsProduct({{250, 500, 1000, 2000, 4000, 6000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(trace, noisy, bench::noisyField, 0)
    ->ArgsProduct({{250, 500, 1000, 2000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(centres, smooth, bench::smoothField)
    ->ArgsProduct({{250, 1000, 4000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(centres, noisy, bench::noisyField)
    ->ArgsProduct({{250, 1000, 4000}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
