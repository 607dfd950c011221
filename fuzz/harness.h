#pragma once

#include <cstdio>
#include <cstdlib>
#include <span>

#include "input.h"

/// What the harnesses share: the way from an input to a call.
namespace velmar::fuzz {

/// Ends the run with a finding.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "== VIOLATED: %s\n", what);
    std::abort();
}

using Target = void (*)(Input& in);

/// Calls of the exports of a group, for the groups whose inputs choose among such.
std::span<const Target> targets();

/// Progress texts go nowhere.
inline void silence() {
    if (std::freopen("/dev/null", "w", stdout) == nullptr) std::abort();
}

}  // namespace velmar::fuzz
