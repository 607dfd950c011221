#pragma once

#include <array>
#include <memory>
#include <string>

#include "read/gridFile.h"

namespace velmar::tool {

/// A wind file (type 11), read in full. Its rows run from south to north, whatever the file has.
struct WindGrid {
    files::FieldHeader header;
    std::string title;                                   ///< UTF-8
    std::string titleBytes;                              ///< GBK
    std::unique_ptr<std::array<grid::Grid, 2>> storage;  ///< of the components
    grid::GridView u;
    grid::GridView v;
};

inline constexpr int windFileType = 11;

/// Reads a wind file; a Problem when that fails or the file is of another kind.
WindGrid readWindFile(const FileHead& head);

/// Wind speed; missing where a component is.
float windSpeed(float u, float v);

}  // namespace velmar::tool
