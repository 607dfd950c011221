#pragma once

#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "contour/state.h"
#include "formats/state.h"
#include "frame/progress.h"
#include "frame/state.h"
#include "geometry/state.h"
#include "input.h"
#include "shade/polygonTools.h"
#include "shade/state.h"
#include "wind/state.h"

/// What the harnesses share: the way from an input to a call.
namespace velmar::fuzz {

/// Ends the run with a finding.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "== VIOLATED: %s\n", what);
    std::abort();
}

/// The library as it is when it has been loaded, so that an input does the same whatever ran before it.
inline void resetState() {
    contour::state() = {};
    formats::state() = {};
    frame::state() = {};
    geometry::state() = {};
    shade::state() = {};
    shade::polygonTools() = {};
    wind::state() = {};
}

using Target = void (*)(Input& in);

/// Calls what the input chooses, up to three times: state that a call leaves behind is there for the next one.
template <class Targets>
void callTargets(Input& in, const Targets& targets) {
    resetState();
    frame::setProgressEnabled(in.oneIn(8));
    const int last = static_cast<int>(std::size(targets)) - 1;
    for (int calls = 1 + in.below(3); calls > 0; --calls) targets[in.ConsumeIntegralInRange(0, last)](in);
}

/// Progress texts go nowhere.
inline void silence() {
    if (std::freopen("/dev/null", "w", stdout) == nullptr) std::abort();
}

}  // namespace velmar::fuzz
