#pragma once

#include <optional>
#include <string_view>

namespace velmar::tool {

// What the fields of reports customarily are. The formats leave it open, so users may say otherwise.

/// The elements of a station's wind.
struct WindElements {
    int direction;  ///< degrees, from which the wind blows
    int speed;      ///< m/s
};

/// "temperature, °C"; empty where it is not known.
std::string_view quantityOf(int fileType, int element);

std::optional<WindElements> customaryWind(int fileType);

/// Total cloud in eighths.
std::optional<int> customaryCloud(int fileType);

}  // namespace velmar::tool
