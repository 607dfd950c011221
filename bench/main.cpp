#include <benchmark/benchmark.h>

#include "frame/progress.h"

int main(int argc, char** argv) {
    // Standard output is for the figures.
    velmar::frame::setProgressEnabled(false);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
