#include "read/stationElements.h"

#include <algorithm>
#include <array>

#include "read/stationFile.h"

namespace velmar::tool {
namespace {

struct Quantity {
    int fileType;
    int element;
    std::string_view text;
};

constexpr std::array quantities{
    Quantity{surfaceReportsType, 6, "total cloud, eighths"},
    Quantity{surfaceReportsType, 7, "wind direction, °"},
    Quantity{surfaceReportsType, 8, "wind speed, m/s"},
    Quantity{surfaceReportsType, 9, "pressure, hPa"},
    Quantity{surfaceReportsType, 10, "change of pressure, hPa"},
    Quantity{surfaceReportsType, 13, "rain of 24 hours, mm"},
    Quantity{surfaceReportsType, 16, "cloud height, m"},
    Quantity{surfaceReportsType, 17, "dew point, °C"},
    Quantity{surfaceReportsType, 18, "visibility, km"},
    Quantity{surfaceReportsType, 19, "present weather"},
    Quantity{surfaceReportsType, 20, "temperature, °C"},
    Quantity{surfaceReportsType, 25, "change of temperature, °C"},
    Quantity{surfaceReportsType, 26, "change of pressure, hPa"},
    Quantity{upperAirReportsType, 6, "height, dagpm"},
    Quantity{upperAirReportsType, 7, "temperature, °C"},
    Quantity{upperAirReportsType, 8, "temperature minus dew point, °C"},
    Quantity{upperAirReportsType, 9, "wind direction, °"},
    Quantity{upperAirReportsType, 10, "wind speed, m/s"},
    Quantity{forecastReportsType, 5, "cloud, %"},
    Quantity{forecastReportsType, 6, "wind direction, °"},
    Quantity{forecastReportsType, 7, "wind speed, m/s"},
    Quantity{forecastReportsType, 8, "lowest temperature, °C"},
    Quantity{forecastReportsType, 9, "highest temperature, °C"},
    Quantity{forecastReportsType, 10, "rain of 6 hours, mm"},
    Quantity{forecastReportsType, 11, "wind direction at 850 hPa, °"},
    Quantity{forecastReportsType, 12, "wind speed at 850 hPa, m/s"},
    Quantity{stationListType, 4, "height, m"},
};

}  // namespace

std::string_view quantityOf(int fileType, int element) {
    const auto* const found = std::ranges::find_if(quantities, [&](const Quantity& quantity) {
        return quantity.fileType == fileType && quantity.element == element;
    });
    return found == quantities.end() ? std::string_view() : found->text;
}

std::optional<WindElements> customaryWind(int fileType) {
    switch (fileType) {
        case surfaceReportsType:
            return WindElements{7, 8};
        case upperAirReportsType:
            return WindElements{9, 10};
        case forecastReportsType:
            return WindElements{6, 7};
        default:
            return std::nullopt;
    }
}

std::optional<int> customaryCloud(int fileType) {
    return fileType == surfaceReportsType ? std::optional(6) : std::nullopt;
}

}  // namespace velmar::tool
