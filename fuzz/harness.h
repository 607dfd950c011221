#pragma once

#include <cstdio>
#include <cstdlib>
#include <span>

#include "base/progress.h"
#include "input.h"

/// What the harnesses share: the way from an input to a call.
namespace velmar::fuzz {

/// Ends the run with a finding.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "== VIOLATED: %s\n", what);
    std::abort();
}

/// Whether calls print their progress texts; one input in eight has them.
inline bool hasTexts = false;

inline void chooseTexts(Input& in) {
    hasTexts = in.oneIn(8);
    base::setProgressEnabled(hasTexts);
}

using Target = void (*)(Input& in);

/// Calls of the exports of a group, for the groups whose inputs choose among such.
std::span<const Target> targets();

/// Progress texts go nowhere.
inline void silence() {
    if (std::freopen("/dev/null", "w", stdout) == nullptr) std::abort();
}

}  // namespace velmar::fuzz
