#include "formats/rainfall.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>

#include "frame/file.h"
#include "frame/messages.h"

namespace velmar::formats {
namespace {

using frame::TextScanner;
using Station = RainTable::Station;

constexpr std::size_t nobody = std::numeric_limits<std::size_t>::max();

float amountOf(const Station& station) {
    return station.value == frame::missingInFiles ? 0.0F : station.value;
}

void addTo(Station& total, const Station& station) {
    constexpr double least = 0.011;
    if (static_cast<double>(station.value) > least && station.value != frame::missingInFiles)
        total.value += station.value;
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
        rowsOfZero_.push_back(row);
    else
        rowOfNumber_.try_emplace(station.number, row);
}

void RainTable::add(std::span<const Station> file) {
    if (stations_.empty()) {
        for (const Station& station : file) append(station);
        return;
    }
    takers_.assign(file.size(), nobody);
    for (std::size_t k = 0; k < file.size(); ++k) {
        const auto found = rowOfNumber_.find(file[k].number);
        if (found == rowOfNumber_.end()) continue;
        takers_[k] = found->second;
        addTo(stations_[found->second], file[k]);
    }
    for (const std::size_t row : rowsOfZero_) gather(row, file);
    for (std::size_t k = 0; k < file.size(); ++k)
        if (takers_[k] == nobody && file[k].number != 0) append(file[k]);
}

void RainTable::gather(std::size_t row, std::span<const Station> file) {
    for (std::size_t k = 0; k < file.size(); ++k)
        if (file[k].number == 0 || takers_[k] < row) addTo(stations_[row], file[k]);
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
