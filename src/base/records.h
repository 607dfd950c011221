#pragma once

#include <cstddef>
#include <vector>

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

/// Outlines with names, their names and points in one array each.
struct NamedOutlines {
    struct Outline {
        std::size_t name;        ///< where the name begins among the names
        std::size_t firstPoint;  ///< where its points begin among the coordinates, counted in points
        std::size_t points;
        bool isWhole;  ///< all the points that it should have are there
    };

    std::vector<Outline> outlines;
    std::vector<char> names;         ///< each with a zero at its end
    std::vector<float> coordinates;  ///< longitude and latitude in turn, degrees
};

}  // namespace velmar::base
