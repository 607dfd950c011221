#pragma once

#include <cstdio>
#include <optional>
#include <string_view>

#include "base/points.h"
#include "base/scanner.h"

namespace velmar::files {

/// A line of a map, its longitudes from 0 on.
struct MapLine : base::PointRun {
    int attribute1;
    int attribute2;
};

using MapLines = base::PointRuns<MapLine, base::LonLat>;

/// The form of the lines of a map file, given by its keyword.
enum class MapForm { diamond, march };

/// Reads the header of a map file (type 9), up to its lines; nullopt when that fails.
std::optional<MapForm> readMapHead(base::TextScanner& in);

/// Reads lines to the end of the file; what can be read is in the lines even when it fails.
///
///   logFile  gets a text per line of the March form; may be null
bool readMapLines(base::TextScanner& in, MapForm form, MapLines& lines, std::FILE* logFile);

/// Writes to the log of a map, if there is one.
inline void tell(std::FILE* log, const char* text) {
    if (log != nullptr) std::fputs(text, log);
}

template <class... Values>
void tell(std::FILE* log, const char* format, Values... values) {
    if (log != nullptr) std::fprintf(log, format, values...);
}

}  // namespace velmar::files
