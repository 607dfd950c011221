// Fast ways beside their plain twins, which the tests have: the results must be the same bits.

#include "twins.h"

namespace {

using namespace velmar::fuzz;

constexpr Target allTargets[] = {compareTraces,      compareRefinements, compareCentres,  compareShadings,
                                 compareStreamlines, compareBarnes,      compareCressman, compareNearest,
                                 compareTriangles,   compareRegions,     compareScanners, compareRealTexts};

}  // namespace

std::span<const Target> velmar::fuzz::targets() { return allTargets; }
