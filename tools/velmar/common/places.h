#pragma once

namespace velmar::tool {

/// A part of the earth, in degrees.
struct GeoBox {
    double west;
    double east;
    double south;
    double north;
};

/// A value and where it is, in degrees.
struct PlacedValue {
    float value;
    double longitude;
    double latitude;
};

/// Longitudes, degrees.
struct LongitudeRange {
    double west;
    double east;
};

}  // namespace velmar::tool
