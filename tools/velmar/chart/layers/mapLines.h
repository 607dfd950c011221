#pragma once

#include <span>
#include <vector>

#include "base/points.h"
#include "chart/paper/mapFrame.h"

namespace velmar::tool {

/// A line of a map on paper. What stands between two pieces is no line: there an outline has been cut at the date
/// line.
using PaperPieces = std::vector<std::vector<PaperPoint>>;

/// Brings a line to paper, as often as it may be seen. Neighbouring points more than half a circle apart are
/// neighbours across the seam of the longitudes. Points off the globe are left out.
std::vector<PaperPieces> linesOnPaper(std::span<const base::LonLat> points, const MapFrame& map);

/// The same for the area that an outline encloses, closed or not. One that goes round the globe encloses the pole
/// that it is nearer to.
std::vector<std::vector<PaperPoint>> areasOnPaper(std::span<const base::LonLat> points, const MapFrame& map);

}  // namespace velmar::tool
