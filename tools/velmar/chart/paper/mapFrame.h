#pragma once

#include "chart/paper/paper.h"
#include "read/byteImageFile.h"
#include "read/gridFile.h"

namespace velmar::tool {

/// The map's rectangle on paper: longitude to the right, latitude upwards, both even.
struct MapFrame {
    GeoBox bounds;
    PaperBox box;

    PaperPoint toPaper(double longitude, double latitude) const {
        return {box.left + (longitude - bounds.west) / (bounds.east - bounds.west) * box.width,
                box.top + (bounds.north - latitude) / (bounds.north - bounds.south) * box.height};
    }
};

/// The area that a grid covers. A Problem when there is none to draw: a grid of one row or column, or one
/// that lies off the globe.
GeoBox boundsOf(const grid::Lattice& lattice);

/// The area of a picture, half a step wider than its lattice, or a whole circle.
GeoBox boundsOf(const ByteImageFile& image);

/// Makes the map as large as the room allows. Small areas keep their shape: a degree of longitude is as much
/// shorter than one of latitude as it is in their middle.
MapFrame fitMap(const GeoBox& bounds, const PaperBox& room);

/// First and last whole number of circles that bring a stretch of longitudes into the bounds; none when last
/// < first.
struct Circles {
    int first;
    int last;
};
Circles circlesInto(const GeoBox& bounds, double west, double east);

}  // namespace velmar::tool
