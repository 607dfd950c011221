#pragma once

#include <cstddef>
#include <vector>

#include "base/points.h"

/// Records that files hold and methods work on.
namespace velmar::base {

/// A station and its first value.
struct StationValue {
    int number;
    float longitude;  ///< degrees
    float latitude;   ///< degrees
    float height;     ///< metres
    float value;

    static constexpr int fieldCount = 5;
};

struct SoundingLevel {
    int pressure;         ///< hPa
    float height;         ///< as the file has it
    float temperature;    ///< degrees C
    float dewPoint;       ///< degrees C
    float windDirection;  ///< degrees, from which the wind blows
    float windSpeed;      ///< as the file has it
};

/// A sounding, from the lowest level up, and what is derived from it: 0 where it cannot be derived.
struct Sounding {
    int number;
    float longitude;  ///< degrees
    float latitude;   ///< degrees
    float height;     ///< of the station
    std::vector<SoundingLevel> levels;

    float freezingHeight = 0;  ///< where the temperature first falls to 0 degrees C, in units of the heights
    float freezingPressure = 0;  ///< hPa
    float kIndex = 0;            ///< after George (1960), degrees
    float totalTotals = 0;       ///< after Miller (1967), degrees
};

/// A named outline. Points that it should have may be missing.
struct NamedOutline : PointRun {
    std::size_t name;  ///< where the name begins among the names
    bool isWhole;
};

struct NamedOutlines : PointRuns<NamedOutline, LonLat> {
    std::vector<char> names;  ///< each with a zero at its end
};

}  // namespace velmar::base
