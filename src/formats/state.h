#pragma once

#include <optional>

#include "formats/mapFile.h"
#include "formats/regions.h"
#include "formats/soundings.h"

namespace velmar::formats {

/// What the readers leave behind for later calls. Lives as long as the process.
struct FormatsState {
    MapState maps;
    /// The soundings of the last file: no export hands them out, but the program shows them.
    SoundingFile soundings;
    /// The regions of the first region file of the process. It is never changed: hosts hold pointers into it.
    std::optional<RegionTable> regions;
};

FormatsState& state();

}  // namespace velmar::formats
