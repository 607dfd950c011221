// Exports that hardly compute: how near they come to what memory allows. The floor of each reads what it must read once,
// and writes a result of the same length into a fresh block; fresh pages are the larger part of it.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>

#include "counters.h"
#include "fields.h"
#include "velmarBaseA.h"

namespace {

using namespace velmar;
using bench::Field;

constexpr float missing = 9999;

/// A grid for which there is next to nothing to draw.
Field fieldOf(const benchmark::State& state) { return bench::smoothField(static_cast<int>(state.range(0))); }

/// Times what makes a block of a field.
template <class Work>
void run(benchmark::State& state, Work work) {
    const Field field = fieldOf(state);
    for (auto _ : state) {
        float* const block = work(field);
        if (block == nullptr) return state.SkipWithError("there is no result");
        benchmark::DoNotOptimize(block[0]);
        std::free(block);
    }
    bench::reportTimePerValue(state, static_cast<double>(field.view().size()));
}

float* freshBlock(std::size_t elements) { return static_cast<float*>(std::malloc(elements * sizeof(float))); }

float* copyOf(const Field& field) {
    float* const block = freshBlock(field.values.size());
    std::memcpy(block, field.values.data(), field.values.size() * sizeof(float));
    return block;
}

float* sumOfBoth(const Field& one, const Field& other) {
    float* const block = freshBlock(one.values.size());
    for (std::size_t k = 0; k < one.values.size(); ++k) block[k] = one.values[k] + other.values[k];
    return block;
}

void contour(benchmark::State& state) {
    run(state, [](const Field& f) {
        constexpr float unreached = 1000;
        return contour2DRaw(f.values.data(), missing, f.side, f.side, 2, 0, 0, 0, &unreached, 1, 0, 0, 1, 1);
    });
}

/// One polygon, that goes round the grid.
void shade(benchmark::State& state) {
    run(state, [](const Field& f) {
        constexpr float belowAll = -1000;
        constexpr int colour = 1;
        return velmarCntrShad(f.values.data(), f.side, f.side, &belowAll, &colour, 1, missing, 0, 0, 1, 1, 0);
    });
}

void centres(benchmark::State& state) {
    run(state,
        [](const Field& f) { return findCenters(f.values.data(), missing, f.side, f.side, 0, 0, 0, 1, 1); });
}

void divergence(benchmark::State& state) {
    const Field other = fieldOf(state);
    run(state, [&](const Field& f) {
        const float step = 170.0F / static_cast<float>(f.side);
        return hdiv(f.values.data(), other.values.data(), f.side, f.side, missing, 0, -85, step, step);
    });
}

constexpr int factor = 2;

void refine(benchmark::State& state) {
    run(state,
        [](const Field& f) { return gagexps(f.values.data(), f.side, f.side, factor, factor, missing); });
}

void contourFloor(benchmark::State& state) { run(state, copyOf); }

void shadeFloor(benchmark::State& state) { run(state, copyOf); }

void centresFloor(benchmark::State& state) {
    run(state, [](const Field& f) {
        unsigned sum = 0;
        for (const float value : f.values) sum += std::bit_cast<unsigned>(value);
        float* const block = freshBlock(1);
        block[0] = std::bit_cast<float>(sum);
        return block;
    });
}

void divergenceFloor(benchmark::State& state) {
    const Field other = fieldOf(state);
    run(state, [&](const Field& f) { return sumOfBoth(f, other); });
}

void refineFloor(benchmark::State& state) {
    run(state, [](const Field& f) {
        const auto fineSide = static_cast<std::size_t>(f.side - 1) * factor + 1;
        float* const block = freshBlock(fineSide * fineSide);
        for (std::size_t row = 0; row < fineSide; ++row)
            std::fill_n(block + row * fineSide, fineSide, f.values[row / factor]);
        return block;
    });
}

#define AT_ALL_SIZES(name) \
    BENCHMARK(name)->RangeMultiplier(2)->Range(500, 4000)->Unit(benchmark::kMillisecond)
AT_ALL_SIZES(contour);
AT_ALL_SIZES(contourFloor);
AT_ALL_SIZES(shade);
AT_ALL_SIZES(shadeFloor);
AT_ALL_SIZES(centres);
AT_ALL_SIZES(centresFloor);
AT_ALL_SIZES(divergence);
AT_ALL_SIZES(divergenceFloor);
AT_ALL_SIZES(refine);
AT_ALL_SIZES(refineFloor);

}  // namespace
