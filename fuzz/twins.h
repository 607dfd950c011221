#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <span>

#include "layouts.h"

/// Comparing fast ways with their plain twins.
namespace velmar::fuzz {

inline bool sameBits(float a, float b) {
    return (std::isnan(a) && std::isnan(b)) ||
           std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

/// Ends the run unless the values are the same, bit for bit; which not-a-number one is does not count.
inline void requireSame(std::span<const float> fast, std::span<const float> plain, const char* what) {
    require(fast.size() == plain.size(), what);
    for (std::size_t k = 0; k < fast.size(); ++k) {
        if (sameBits(fast[k], plain[k])) continue;
        std::fprintf(stderr, "element %zu: %.9g, the plain way %.9g\n", k, static_cast<double>(fast[k]),
                     static_cast<double>(plain[k]));
        require(false, what);
    }
}

inline std::span<const float> valuesOf(const Block& block) { return {block.get(), lengthOf(block)}; }

// The targets of the differential harness, one per fast way.
void compareTraces(Input& in);
void compareRefinements(Input& in);
void compareCentres(Input& in);
void compareShadings(Input& in);
void compareStreamlines(Input& in);
void compareBarnes(Input& in);
void compareCressman(Input& in);
void compareNearest(Input& in);
void compareTriangles(Input& in);
void compareRegions(Input& in);
void compareScanners(Input& in);
void compareRealTexts(Input& in);

}  // namespace velmar::fuzz
