// Fast ways beside their plain twins, which the tests have: the results must be the same bits.

#include "twins.h"

namespace {

using namespace velmar::fuzz;

constexpr Target targets[] = {compareTraces,      compareRefinements, compareCentres,  compareShadings,
                              compareStreamlines, compareBarnes,      compareCressman, compareNearest,
                              compareTriangles,   compareRegions,     compareScanners, compareRealTexts};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input in(data, size);
    callTargets(in, targets);
    return 0;
}
