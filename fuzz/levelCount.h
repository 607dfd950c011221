#pragma once

#include "contour/levels.h"

namespace velmar::fuzz {

/// Whether levels are chosen that are very many, up to the million that the library draws: such calls are only slow
/// and their results large.
inline bool hasVeryManyLevels(const frame::GridView& grid, float undefined,
                              const contour::LevelRequest& request) {
    return contour::chooseLevels(grid, undefined, request).values.size() > 500;
}

}  // namespace velmar::fuzz
