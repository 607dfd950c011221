#pragma once

#include <optional>
#include <string>
#include <vector>

#include "files/gridFile.h"
#include "read/fileHead.h"

namespace velmar::tool {

inline constexpr int soundingFileType = 5;

/// What was measured at a pressure; what is missing or cannot be is not set.
struct CheckedLevel {
    int pressure;                        ///< hPa
    std::optional<float> height;         ///< as the file has it, in most files metres
    std::optional<float> temperature;    ///< degrees C
    std::optional<float> dewPoint;       ///< degrees C
    std::optional<float> windDirection;  ///< from which it blows, degrees clockwise from north
    std::optional<float> windSpeed;      ///< m/s
};

/// Where the temperature falls to 0 degrees C: the lowest level where that is frozen already.
struct FreezingLevel {
    float height;    ///< in the units of the file's heights
    float pressure;  ///< hPa
};

struct CheckedSounding {
    int number;
    float longitude;
    float latitude;
    float height;                      ///< of the station, metres
    std::vector<CheckedLevel> levels;  ///< by falling pressure
    std::optional<FreezingLevel> freezing;
};

struct CheckedSoundings {
    std::string title;        ///< UTF-8
    files::FieldHeader time;  ///< the date; the rest is 0
    int promised;             ///< soundings, according to the header
    std::vector<CheckedSounding> soundings;

    /// Where the file breaks off; empty when it is whole.
    std::string notice() const;
};

/// Reads a file of soundings (type 5), as far as it goes; a Problem when its header cannot be read or it is of
/// another kind.
CheckedSoundings readSoundingFile(const FileHead& head);

/// Keeps the soundings of one station; a Problem when there is none.
void keepStation(CheckedSoundings& file, int number);

}  // namespace velmar::tool
