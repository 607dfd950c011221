#pragma once

#include "contour/levels.h"
#include "harness.h"

namespace velmar::fuzz {

/// Whether levels are chosen that are very many, up to the million that the library draws: such calls are only slow
/// and their results large.
inline bool hasVeryManyLevels(const grid::GridView& grid, float undefined,
                              const contour::LevelRequest& request) {
    base::setProgressEnabled(false);  // a text a level, before they are too many
    const std::size_t count = contour::chooseLevels(grid, undefined, request).values.size();
    base::setProgressEnabled(hasTexts);
    return count > 500;
}

}  // namespace velmar::fuzz
