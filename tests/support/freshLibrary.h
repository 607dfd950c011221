#pragma once

#include "capi/state.h"

namespace velmar::test {

/// Puts the library into the state that it has when it is loaded.
inline void resetLibrary() { capi::state() = {}; }

}  // namespace velmar::test
