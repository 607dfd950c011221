#pragma once

#include "contour/state.h"
#include "formats/state.h"
#include "frame/state.h"
#include "geometry/state.h"
#include "shade/polygonTools.h"
#include "shade/state.h"
#include "wind/state.h"

namespace velmar::test {

/// Puts the library into the state that it has when it is loaded.
inline void resetLibrary() {
    contour::state() = {};
    formats::state() = {};
    frame::state() = {};
    geometry::state() = {};
    shade::state() = {};
    shade::polygonTools() = {};
    wind::state() = {};
}

}  // namespace velmar::test
