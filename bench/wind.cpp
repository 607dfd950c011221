// Wind fields: reading, streamlines and differences, with the plain ways beside them where both give the same.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <string>

#include "../tests/wind/plainStreamlines.h"
#include "capi/state.h"
#include "counters.h"
#include "grid/grid.h"
#include "velmarBaseA.h"

namespace {

using namespace velmar;

constexpr float missing = 9999;

/// A wind over the whole earth, m/s: a smooth field and the same turned by a quarter.
test::PlainWind windOf(int nx, int ny, int density) {
    test::PlainWind wind{nx, ny, {}, {}, {}};
    for (int j = 0; j < ny; ++j) {
        for (int i = 0; i < nx; ++i) {
            const double x = 6.283 * i / nx;
            const double y = 6.283 * j / ny;
            const double u = 8 * std::sin(3 * x + y) + 6 * std::sin(5 * y - x);
            const double v = 6 * std::cos(4 * x - 3 * y) + 5 * std::sin(2 * x);
            wind.u.push_back(static_cast<float>(u));
            wind.v.push_back(static_cast<float>(v));
            wind.c.push_back(static_cast<float>(std::sqrt(u * u + v * v)));
        }
    }
    for (int k = 0; k < 40; ++k) {
        wind.levels.push_back(2.0F * static_cast<float>(k));
        wind.colours.push_back(k);
    }
    wind.density = density;
    return wind;
}

float* analyse(const test::PlainWind& w) {
    return streamAnalyse(w.u.data(), w.v.data(), w.c.data(), w.nx, w.ny, missing, missing, missing, 1,
                         w.levels.data(), w.colours.data(), 40, w.density);
}

void reportPoints(benchmark::State& state, const float* block) {
    const double points = static_cast<double>(block[1]) / 4;
    state.counters["points"] = points;
    bench::reportTimePerValue(state, points);
}

void trace(benchmark::State& state, const test::PlainWind& wind) {
    float* block = nullptr;
    for (auto _ : state) {
        freecPointer(block);
        block = analyse(wind);
    }
    reportPoints(state, block);
    freecPointer(block);
}

void streamlinesByDensity(benchmark::State& state) {
    trace(state, windOf(360, 181, static_cast<int>(state.range(0))));
}

void streamlinesBySize(benchmark::State& state) {
    const int nx = static_cast<int>(state.range(0));
    trace(state, windOf(nx, nx / 2, 5));
}

/// Nothing is drawn: what is left is the search for free cells.
void calm(benchmark::State& state) {
    test::PlainWind wind = windOf(360, 181, static_cast<int>(state.range(0)));
    wind.u.assign(wind.u.size(), 0);
    wind.v.assign(wind.v.size(), 0);
    trace(state, wind);
}

void streamlinesPlainly(benchmark::State& state) {
    const test::PlainWind wind = windOf(360, 181, static_cast<int>(state.range(0)));
    capi::state().windLattice = {0, 359, 1, -90, 90, 1};
    capi::state().streamlineColour = 0;
    const test::PlainPlace place{0, 359, -90, 90, 1, 1};
    std::vector<float> plain;
    for (auto _ : state) {
        int colour = 0;
        plain = test::PlainStreamlines(wind, place, colour).block();
    }
    float* const block = analyse(wind);
    if (std::memcmp(block, plain.data(), plain.size() * sizeof(float)) != 0)
        state.SkipWithError("the results differ");
    reportPoints(state, block);
    freecPointer(block);
}

void readWind(benchmark::State& state) {
    for (auto _ : state) freecPointer(readVelmarData11("samples/winds/wind10m_global_1deg.000"));
    bench::reportTimePerValue(state, 2 * 360 * 181);
}

BENCHMARK(readWind)->Unit(benchmark::kMillisecond);
BENCHMARK(streamlinesByDensity)->DenseRange(1, 14)->Unit(benchmark::kMillisecond);
BENCHMARK(streamlinesBySize)->RangeMultiplier(2)->Range(90, 5760)->Unit(benchmark::kMillisecond);
BENCHMARK(streamlinesPlainly)->Arg(5)->Arg(14)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(calm)->Arg(5)->Arg(14)->Unit(benchmark::kMillisecond);

}  // namespace
