#pragma once

#include <string>

#include "compute/contours.h"
#include "compute/windQuantity.h"
#include "read/byteImageFile.h"
#include "read/lineMap.h"
#include "read/stationFile.h"

namespace velmar::tool {

struct StationPlot;

/// What is written around a map.
struct ChartTexts {
    std::string title;
    std::string subtitle;  ///< times and level
    std::string caption;   ///< what the lines or greys stand for
    std::string extremes;  ///< of the area shown
    bool hasNoData;        ///< whether a part of the area shown has no data
};

ChartTexts textsOf(const GridFile& file, const GlobeGrid& grid, const ContourSet& lines, const GeoBox& shown);
ChartTexts textsOf(const ByteImageFile& image, const GeoBox& shown);
ChartTexts textsOf(const LineMap& map);
ChartTexts textsOf(const StationFile& file, const StationPlot& plot, const GeoBox& shown);

/// The same with lines that are drawn from the stations.
ChartTexts textsOf(const StationFile& file, const StationPlot& plot, const ContourSet& lines,
                   const GeoBox& shown);

/// Of a wind file whose chart has colours for a quantity; the field is the quantity's.
ChartTexts textsOf(const WindGrid& file, const GlobeGrid& field, bool hasColours, WindQuantity quantity,
                   const GeoBox& shown);

}  // namespace velmar::tool
