// Filled contours, with and without the texts that the tracing prints, and polygon clipping.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <numeric>

#include "base/progress.h"
#include "counters.h"
#include "fields.h"
#include "velmarBaseA.h"

namespace {

using namespace velmar;
using bench::Field;
using bench::Levels;

constexpr float missing = 9999.0F;
constexpr int wholeGrid = 0;

/// Sends standard output to nowhere, so that printed texts cost what they cost a host that does not look at
/// them, and do not mix with the results.
class SilentOutput {
public:
    SilentOutput() : kept_(dup(STDOUT_FILENO)) {
        std::fflush(stdout);
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        close(nowhere);
    }
    ~SilentOutput() {
        std::fflush(stdout);
        dup2(kept_, STDOUT_FILENO);
        close(kept_);
    }
    SilentOutput(const SilentOutput&) = delete;
    SilentOutput& operator=(const SilentOutput&) = delete;

private:
    int kept_;
};

enum class Texts { off, on };

void shade(benchmark::State& state, Field (*makeField)(int), Texts texts, int stripRows) {
    const Field field = makeField(static_cast<int>(state.range(0)));
    const Levels levels = bench::levelsAround(0);
    std::array<int, std::tuple_size_v<Levels>> colours{};
    std::iota(colours.begin(), colours.end(), 0);
    const SilentOutput silent;
    base::setProgressEnabled(texts == Texts::on);
    for (auto _ : state) {
        float* block =
            velmarCntrShad(field.values.data(), field.side, field.side, levels.data(), colours.data(),
                           static_cast<int>(levels.size()), missing, 0, 0, 1, 1, stripRows);
        if (!block) {
            state.SkipWithError("there is no result");
            break;
        }
        state.counters["polygons"] = block[1];
        cntrShadFreeLineVar(block);
    }
    base::setProgressEnabled(true);
    bench::reportTimePerValue(state, static_cast<double>(field.values.size()));
}

/// A star around a square, every second corner outside.
void clip(benchmark::State& state) {
    const auto corners = static_cast<int>(state.range(0));
    std::vector<float> star;
    for (int k = 0; k < corners; ++k) {
        const double angle = 6.283 * k / corners;
        const double radius = k % 2 == 0 ? 2 : 0.5;
        star.push_back(static_cast<float>(radius * std::cos(angle)));
        star.push_back(static_cast<float>(radius * std::sin(angle)));
    }
    std::vector<float> points;
    for (auto _ : state) {
        points = star;
        points.resize(star.size() * 4);
        benchmark::DoNotOptimize(Clip(points.data(), -1, -1, 1, 1, corners));
    }
    bench::reportTimePerValue(state, corners);
}

BENCHMARK_CAPTURE(shade, smooth, bench::smoothField, Texts::off, wholeGrid)
    ->ArgsProduct({{250, 500, 1000, 2000, 4000, 6000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(shade, smoothWithTexts, bench::smoothField, Texts::on, wholeGrid)
    ->ArgsProduct({{250, 500, 1000, 2000, 4000, 6000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(shade, smoothStripsOfOneRow, bench::smoothField, Texts::off, 1)
    ->ArgsProduct({{250, 500, 1000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(shade, noisy, bench::noisyField, Texts::off, wholeGrid)
    ->ArgsProduct({{100, 200}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(clip)->ArgsProduct({{1000, 100000}})->Unit(benchmark::kMillisecond);

}  // namespace
