#pragma once

#include <cstdio>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "frame/block.h"
#include "frame/scanner.h"

namespace velmar::formats {

/// Lines of a map, their points in one array.
struct MapLines {
    struct Line {
        std::size_t points;
        int attribute1;
        int attribute2;
    };

    std::vector<Line> lines;
    std::vector<float> coordinates;  ///< longitude and latitude in turn, degrees; longitudes from 0 on
};

/// How the lines of a map file begin: its keyword says so.
enum class MapForm { diamond, march };

/// Reads the head of a map file (type 9), up to its lines; nothing when that fails.
std::optional<MapForm> readMapHead(frame::TextScanner& in);

/// Reads lines to the end of the file; what can be read is in the lines even when it fails.
///
///   logFile  gets a text per line of the March form; may be null
bool readMapLines(frame::TextScanner& in, MapForm form, MapLines& lines, std::FILE* logFile);

/// The maps that ReadMap9 has read. Lives as long as the process.
struct MapState {
    bool hasFirstMap = false;
    /// Lines of the first map that could not be read to its end: the next result hands them out. Lines of
    /// later maps are never handed out, so they are not kept.
    MapLines firstMap;
};

/// Reads a map file as ReadMap9 describes it; nothing when that fails.
frame::ResultBlock readMap(const char* path, MapState& state);

}  // namespace velmar::formats
