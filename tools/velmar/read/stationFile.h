#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/stations.h"
#include "files/gridFile.h"
#include "read/fileHead.h"

namespace velmar::tool {

// Types of station files.
inline constexpr int surfaceReportsType = 1;
inline constexpr int upperAirReportsType = 2;
inline constexpr int stationValuesType = 3;
inline constexpr int forecastReportsType = 8;
inline constexpr int stationListType = 16;

/// A station file, read as far as it goes.
struct StationFile {
    int type;
    std::string title;          ///< UTF-8
    std::string titleBytes;     ///< GBK
    files::FieldHeader field;   ///< date, forecast hour and level; what the type does not have is 0
    std::vector<float> levels;  ///< those that the file wants drawn
    float boldValue;
    int promised;  ///< stations, according to the header

    // A station has the elements from the first on: fields of a report, counted from 1, or values. Fields of
    // which a report has none are missing.
    int firstElement;
    int elementCount;
    int customaryElement;
    std::vector<float> longitudes;
    std::vector<float> latitudes;
    std::vector<float> values;  ///< all elements of a station, then those of the next

    std::size_t stationCount() const { return longitudes.size(); }
    int lastElement() const { return firstElement - 1 + elementCount; }
    /// Lists of stations have no date.
    bool hasTime() const { return field.month != 0; }
    float value(std::size_t station, int element) const {
        return values[station * static_cast<std::size_t>(elementCount) +
                      static_cast<std::size_t>(element - firstElement)];
    }
    /// Whether a station lies on the globe and has a value of the element.
    bool hasValue(std::size_t station, int element) const;
    /// The stations for which that is so.
    analysis::Stations withValue(int element) const;
};

/// Reads a station file; a Problem when its header cannot be read or it is of another kind.
StationFile readStationFile(const FileHead& head);

/// That a file ends before its last station; empty when it does not.
std::string lackOfStations(const StationFile& file);

/// The element asked for, or else the customary one; a Problem when stations have none of that number.
int chooseElement(const StationFile& file, std::optional<int> asked);

}  // namespace velmar::tool
