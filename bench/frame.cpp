// Reading grid files: the library's reader beside fscanf("%f") value by value, and the memory that it needs.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "counters.h"
#include "velmarBaseA.h"

namespace {

using velmar::bench::reportTimePerValue;

constexpr int columns = 100;

/// A folder for the grid files of this run, removed at its end.
class Scratch {
public:
    Scratch() {
        std::string name = (std::filesystem::temp_directory_path() / "velmarBenchXXXXXX").string();
        if (!mkdtemp(name.data())) std::abort();
        folder_ = name;
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch() { std::filesystem::remove_all(folder_); }

    /// The grid file with that many values of that many digits ("519.8" has 4), written when asked for first.
    std::filesystem::path gridFile(long count, long digits) const {
        const auto path = folder_ / (std::to_string(count) + "_" + std::to_string(digits) + ".000");
        if (!std::filesystem::exists(path)) write(path, count, static_cast<int>(digits));
        return path;
    }

private:
    static void write(const std::filesystem::path& path, long count, int digits) {
        std::FILE* file = std::fopen(path.c_str(), "w");
        if (!file) std::abort();
        std::fprintf(file, "diamond 4 FIELD\n2020 1 1 0 0 500\n1 1 0 99 0 90 %d %ld\n4 400 600 0 500\n",
                     columns, count / columns);
        for (long k = 0; k < count; ++k) {
            const double value = 520.0 + 60.0 * std::sin(1e-3 * static_cast<double>(k));
            std::fprintf(file, k % 10 == 9 ? "%.*f\n" : "%.*f ", digits - 3, value);
        }
        if (std::fclose(file) != 0) std::abort();
    }

    std::filesystem::path folder_;
};

const Scratch scratch;

void reportReading(benchmark::State& state, const std::filesystem::path& path) {
    reportTimePerValue(state, static_cast<double>(state.range(0)));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(std::filesystem::file_size(path)));
}

void readGridFile(benchmark::State& state) {
    const auto path = scratch.gridFile(state.range(0), state.range(1));
    for (auto _ : state) {
        float* block = readVelmar4(path.c_str());
        if (!block || block[0] < 0) return state.SkipWithError("the file was not read");
        freecPointer(block);
    }
    reportReading(state, path);
}

void readWithFscanf(benchmark::State& state) {
    const auto path = scratch.gridFile(state.range(0), state.range(1));
    for (auto _ : state) {
        std::vector<float> values(static_cast<std::size_t>(state.range(0)));
        std::FILE* file = std::fopen(path.c_str(), "r");
        if (!file) return state.SkipWithError("the file was not opened");
        for (int line = 0; line < 4; ++line) std::fscanf(file, "%*[^\n]\n");
        bool complete = true;
        for (float& value : values) complete &= std::fscanf(file, "%f", &value) == 1;
        std::fclose(file);
        if (!complete) return state.SkipWithError("the file was not read");
        benchmark::DoNotOptimize(values.data());
    }
    reportReading(state, path);
}

/// Largest resident memory, in bytes, of a child process that runs the body.
template <class Body>
double childPeak(const Body& body) {
    // Memory that earlier benchmarks freed but the process still holds would hide what the body takes.
    malloc_trim(0);
    const pid_t child = fork();
    if (child == 0) {
        body();
        _exit(0);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0) std::abort();
    return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

void readingMemory(benchmark::State& state) {
    const auto path = scratch.gridFile(state.range(0), state.range(1));
    double growth = 0;
    for (auto _ : state) {
        growth = childPeak([&] { freecPointer(readVelmar4(path.c_str())); }) - childPeak([] {});
    }
    state.counters["peakOverFile"] = growth / static_cast<double>(std::filesystem::file_size(path));
}

BENCHMARK(readGridFile)
    ->ArgsProduct({{10'000, 100'000, 1'000'000, 10'000'000}, {4, 6}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(readWithFscanf)
    ->ArgsProduct({{10'000, 100'000, 1'000'000, 10'000'000}, {4, 6}})
    ->Unit(benchmark::kMillisecond);
// Smaller files drown in what a process needs anyway.
BENCHMARK(readingMemory)
    ->ArgsProduct({{1'000'000, 10'000'000}, {4, 6}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
