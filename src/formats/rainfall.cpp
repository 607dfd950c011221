#include "formats/rainfall.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "frame/file.h"
#include "frame/messages.h"
#include "frame/wideVectors.h"

namespace velmar::formats {
namespace {

using frame::TextScanner;
using Station = RainTable::Station;

float amountOf(const Station& station) {
    return station.value == frame::missingInFiles ? 0.0F : station.value;
}

/// Whether an amount is added to the total of a station that is in the table already.
bool adds(float amount) {
    constexpr double least = 0.011;
    return static_cast<double>(amount) > least && amount != frame::missingInFiles;
}

VELMAR_WIDE_VECTORS
void addToAll(float* totals, std::size_t count, float amount) {
    for (std::size_t k = 0; k < count; ++k) totals[k] += amount;
}

/// The file of a time in a directory. Where backslashes separate nothing, a file whose name has one in it may
/// stand for it.
std::string fileNameOf(const std::string& directory, DateKey key) {
    const DateKey year = key / 1000000;
    std::array<char, 128> name{};
    std::snprintf(name.data(), name.size(), "%.2d%.2d%.2d%.2d.000",
                  static_cast<int>(year > 100 ? year % 100 : year), static_cast<int>(key / 10000 % 100),
                  static_cast<int>(key / 100 % 100), static_cast<int>(key % 100));
    std::string path = directory + '\\' + name.data();
    std::error_code error;
    if (std::filesystem::path::preferred_separator == '/' && !std::filesystem::exists(path, error))
        path[directory.size()] = '/';
    return path;
}

std::optional<std::vector<Station>> readRain(const std::string& path) {
    const std::optional<frame::FileText> file = frame::readWholeFile(path.c_str());
    if (!file) {
        std::fputs(frame::messages::cannotOpenWindFile, stderr);
        return std::nullopt;
    }
    TextScanner in(file->view());
    frame::Outcome<analysis::StationValuesHeader> header = analysis::readStationValuesHeader(in);
    if (!header || header->keyword != "diamond") return std::nullopt;
    int valuesPerStation = 0;
    int promised = 0;
    if (scan(in, valuesPerStation, promised) < 2 || valuesPerStation != 1) return std::nullopt;
    std::vector<Station> stations;
    const std::size_t most = in.recordsAtMost(promised, Station::fieldCount);
    stations.reserve(most);
    Station station{};
    while (stations.size() < most && analysis::scanStationValue(in, station) == Station::fieldCount)
        stations.push_back(station);
    return stations;
}

frame::ResultBlock pack(std::span<const Station> stations) {
    const std::size_t size = 5 * stations.size() + 1;
    frame::ResultBlock block = frame::allocateBlock(size);
    frame::BlockWriter out(block);
    out.appendCount(size);
    for (const Station& s : stations)
        out.append(std::array{static_cast<float>(s.number), s.longitude, s.latitude, s.height, s.value});
    return block;
}

}  // namespace

void RainTable::append(const Station& station) {
    const std::size_t row = stations_.size();
    stations_.push_back(station);
    stations_.back().value = amountOf(station);
    if (station.number == 0)
        zeroRows_.push_back({row, 0});
    else
        rowOfNumber_.try_emplace(station.number, row);
}

void RainTable::add(std::span<const Station> file) {
    if (stations_.empty()) {
        for (const Station& station : file) append(station);
        shareTotalsOfZeros();
        return;
    }
    std::vector<Station> newcomers;
    for (const Station& station : file) {
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
    for (const Station& station : newcomers) append(station);
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

/// Adds to the totals of the rows of number 0 from some row on.
void RainTable::addToZerosFrom(std::size_t row, float amount) {
    const auto first = std::ranges::lower_bound(firstRows_, row) - firstRows_.begin();
    addToAll(zeroTotals_.data() + first, zeroTotals_.size() - static_cast<std::size_t>(first), amount);
}

frame::ResultBlock accumulateRain(const char* directory, const RainSpan& span) {
    if (directory == nullptr || span.start >= span.end || span.stepHours < 1) return nullptr;
    RainTable table;
    DateKey key = span.start;
    do {
        key = stepDateKey(span.stepHours, key);
        const std::optional<std::vector<Station>> stations = readRain(fileNameOf(directory, key));
        if (!stations) return nullptr;
        table.add(*stations);
    } while (key < span.end);
    return table.stations().empty() ? nullptr : pack(table.stations());
}

}  // namespace velmar::formats
