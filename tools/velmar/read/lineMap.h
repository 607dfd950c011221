#pragma once

#include <string>
#include <vector>

#include "read/fileHead.h"
#include "read/geoPoints.h"
#include "read/gridFile.h"

namespace velmar::tool {

/// Lines to be drawn on maps: coasts and borders (types 9, 777, 778 and 780) or outlines of regions (type 10).
struct LineMap {
    struct MapLine {
        std::size_t firstPoint;
        std::size_t points;
        int attribute1 = 0;  ///< of map files of the March form: 1 a coast, 2 a border in the samples
        int attribute2 = 0;
        std::string name;  ///< of a region, UTF-8; empty for other lines
    };

    std::string title;  ///< UTF-8
    std::vector<MapLine> lines;
    std::vector<float> coordinates;  ///< longitude and latitude in turn, degrees, as the file has them
    std::string notice;              ///< where the file breaks off; empty when it is whole

    GeoPoints pointsOf(const MapLine& line) const {
        return {std::span(coordinates).subspan(2 * line.firstPoint, 2 * line.points)};
    }
};

inline constexpr int regionFileType = 10;

/// Reads a file of lines; a Problem when it is of another kind or has no line that can be read.
LineMap readLineMap(const FileHead& head);

/// The area that lines cover. Lines on both sides of the date line or of Greenwich are brought together: the bounds
/// begin behind the widest gap without points. A Problem when no point is on the globe.
GeoBox boundsOf(const LineMap& map);

}  // namespace velmar::tool
