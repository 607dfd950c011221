#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/stations.h"
#include "fileHead.h"
#include "frame/gridFile.h"

namespace velmar::tool {

inline constexpr int surfaceReportsType = 1;
inline constexpr int stationValuesType = 3;

inline bool isStationFile(const FileHead& head) {
    return head.kind.type == surfaceReportsType || head.kind.type == stationValuesType;
}

/// A file of surface reports or of station values, read as far as it goes.
struct StationFile {
    std::string title;          ///< UTF-8
    std::string titleBytes;     ///< GBK
    frame::FieldHeader field;   ///< date and level; the rest is 0
    std::vector<float> levels;  ///< those that the file wants drawn
    float boldValue;
    int promised;  ///< stations, according to the header

    // A station has the elements from the first on: fields of a report, counted from 1, or values.
    int firstElement;
    int elementCount;
    int customaryElement;
    std::vector<float> longitudes;
    std::vector<float> latitudes;
    std::vector<float> values;  ///< all elements of a station, then those of the next

    std::size_t stationCount() const { return longitudes.size(); }
    int lastElement() const { return firstElement + elementCount - 1; }
    float value(std::size_t station, int element) const {
        return values[station * static_cast<std::size_t>(elementCount) +
                      static_cast<std::size_t>(element - firstElement)];
    }
    /// The stations on the globe that have a value of the element.
    analysis::Stations withValue(int element) const;
};

/// Reads a file of surface reports (type 1) or station values (type 3); a Problem when its header cannot be
/// read or it is of another kind.
StationFile readStationFile(const FileHead& head);

}  // namespace velmar::tool
