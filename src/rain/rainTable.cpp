#include "rain/rainTable.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <map>

#include "base/wideVectors.h"
#include "grid/grid.h"

namespace velmar::rain {
namespace {

using base::StationValue;

float amountOf(const StationValue& station) {
    return station.value == grid::missingInFiles ? 0.0F : station.value;
}

/// Whether an amount is added to the total of a station that is in the table already.
bool adds(float amount) {
    constexpr double least = 0.011;
    return static_cast<double>(amount) > least && amount != grid::missingInFiles;
}

VELMAR_WIDE_VECTORS
void addToAll(float* totals, std::size_t count, float amount) {
    for (std::size_t k = 0; k < count; ++k) totals[k] += amount;
}

}  // namespace

void RainTable::append(const StationValue& station) {
    const std::size_t row = stations_.size();
    stations_.push_back(station);
    stations_.back().value = amountOf(station);
    if (station.number == 0)
        zeroRows_.push_back({row, 0});
    else
        rowOfNumber_.try_emplace(station.number, row);
}

void RainTable::add(std::span<const StationValue> file) {
    if (stations_.empty()) {
        for (const StationValue& station : file) append(station);
        shareTotalsOfZeros();
        return;
    }
    std::vector<StationValue> newcomers;
    for (const StationValue& station : file) {
        const auto taker = rowOfNumber_.find(station.number);
        if (station.number == 0) {
            if (adds(station.value)) addToZerosFrom(0, station.value);
        } else if (taker == rowOfNumber_.end()) {
            newcomers.push_back(station);
        } else if (adds(station.value)) {
            stations_[taker->second].value += station.value;
            addToZerosFrom(taker->second, station.value);
        }
    }
    for (const auto [row, total] : zeroRows_) stations_[row].value = zeroTotals_[total];
    for (const StationValue& station : newcomers) append(station);
}

void RainTable::shareTotalsOfZeros() {
    std::map<std::uint32_t, std::size_t> totalOfBits;
    std::size_t next = 0;
    for (auto& [row, total] : zeroRows_) {
        if (row != next) totalOfBits.clear();
        next = row + 1;
        const float value = stations_[row].value;
        const auto [found, isNew] =
            totalOfBits.try_emplace(std::bit_cast<std::uint32_t>(value), zeroTotals_.size());
        total = found->second;
        if (!isNew) continue;
        zeroTotals_.push_back(value);
        firstRows_.push_back(row);
    }
}

/// Adds to the totals of the rows of number 0, from a row on.
void RainTable::addToZerosFrom(std::size_t row, float amount) {
    const auto first = std::ranges::lower_bound(firstRows_, row) - firstRows_.begin();
    addToAll(zeroTotals_.data() + first, zeroTotals_.size() - static_cast<std::size_t>(first), amount);
}

}  // namespace velmar::rain
