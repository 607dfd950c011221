#pragma once

#include <string>
#include <string_view>

#include "gridFile.h"

namespace velmar::tool {

/// A wind file (type 11), read in full. Its rows run from south to north, whatever the file has.
struct WindFile {
    frame::FieldHeader header;
    std::string title;       ///< UTF-8
    std::string titleBytes;  ///< GBK
    Block block;
    frame::GridView u;
    frame::GridView v;
};

inline constexpr int windFileType = 11;

bool isWindFile(const FileHead& head);

/// Reads a wind file; a Problem when that fails or the file is of another kind.
WindFile readWindFile(const std::string& path, const FileHead& head);

/// Wind speed; missing where a component is.
float windSpeed(float u, float v);

/// What can be computed from a wind field.
enum class WindQuantity { speed, divergence, vorticity };

/// "speed", "divergence", "vorticity"
std::string_view quantityName(WindQuantity quantity);

/// A quantity as a grid file of the same place and time, with levels in its header that suit it: wind speed in
/// m/s, divergence and relative vorticity in 1/s, times the scale. Points where it cannot be computed are
/// missing; in a field that circles the globe those on both sides of the seam are computed.
GridFile windQuantity(const WindFile& file, WindQuantity quantity, float scale = 1);

}  // namespace velmar::tool
