#include <benchmark/benchmark.h>

#include "base/progress.h"

int main(int argc, char** argv) {
    // Standard output is for the figures.
    velmar::base::setProgressEnabled(false);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
