#pragma once

#include <cstddef>
#include <span>
#include <unordered_map>
#include <vector>

#include "base/records.h"

namespace velmar::rain {

/// Rain added up by station number. The table begins with the stations of the first file, in its order;
/// stations that come later are appended.
///
/// The first file is taken as it is, with stations of one number as different ones. In later files a station's
/// number finds the first station of that number, and amounts of 0.011 and less do not count for it. Number 0 is
/// not a station's: it is never appended, and one that the first file has gathers everything of a later file
/// that stations before it in the table have taken already, besides other zeros. All this is established behaviour.
class RainTable {
public:
    void add(std::span<const base::StationValue> file);

    /// The stations, with the totals as their values.
    std::span<const base::StationValue> stations() const { return stations_; }

private:
    /// A row of number 0.
    struct ZeroRow {
        std::size_t row;
        std::size_t total;  ///< which of the totals it has
    };

    void append(const base::StationValue& station);
    void shareTotalsOfZeros();
    void addToZerosFrom(std::size_t row, float amount);

    std::vector<base::StationValue> stations_;
    std::unordered_map<int, std::size_t> rowOfNumber_;  ///< the first row of each number but 0
    std::vector<ZeroRow> zeroRows_;

    // Adjacent rows of number 0 gather the same amounts, so those that begin with the same total share one.
    std::vector<float> zeroTotals_;
    std::vector<std::size_t> firstRows_;  ///< of each of these totals, in rising order
};

}  // namespace velmar::rain
