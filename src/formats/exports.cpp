#include <algorithm>
#include <array>
#include <string_view>

#include "formats/polyline.h"
#include "formats/rainfall.h"
#include "formats/reports.h"
#include "formats/state.h"
#include "formats/stationValues.h"
#include "frame/barrier.h"
#include "frame/file.h"
#include "velmarBaseA.h"

namespace {

using namespace velmar::formats;
using velmar::frame::guarded;
using velmar::frame::guardedReader;

float* reportsOf(const char* path, const ReportLayout& layout) noexcept {
    return guarded<float*>(nullptr, [&] { return readReports(path, layout).release(); });
}

/// Four-digit years. Two digits mean the years from 2000 on.
int fullYear(int year) { return year < 100 ? year + 2000 : year; }

/// Whether the hours are those that accumulations of more than an hour start and end at.
bool areObservationHours(int startHour, int endHour) {
    constexpr std::array hours{2, 8, 14, 20};
    const auto isOne = [&](int hour) { return std::ranges::find(hours, hour) != hours.end(); };
    return (isOne(startHour) || (startHour == 5 && endHour == 5)) && (isOne(endHour) || endHour == 5);
}

int loadRegions(const char* path) {
    constexpr int loaded = 1;
    constexpr int pointMissing = 0;
    constexpr int refused = -1;
    std::optional<RegionTable>& kept = state().regions;
    if (kept) return refused;
    const auto file = velmar::frame::readWholeFile(path);
    if (!file) return refused;
    velmar::frame::TextScanner in(file->view());
    if (!readRegionHead(in)) return refused;
    RegionTable table;
    const RegionsRead result = readRegions(in, table);
    // A file without regions is kept as well: no other is loaded after it.
    kept = std::move(table);
    if (result == RegionsRead::pointMissing) return pointMissing;
    return kept->regions.empty() ? refused : loaded;
}

bool hasName(const RegionTable& table, const Region& region, std::string_view name) {
    return name == table.nameOf(region);
}

/// The points of a region, whose number goes to a pointer that may be null.
const float* handOut(const RegionTable& table, const Region& region, int* count) {
    if (count != nullptr) *count = static_cast<int>(region.points);
    return table.pointsOf(region);
}

float* allOfName(const RegionTable& table, std::string_view name, int& total) {
    std::size_t regions = 0;
    std::size_t points = 0;
    for (const Region& region : table.regions) {
        if (!hasName(table, region, name)) continue;
        ++regions;
        points += region.points;
    }
    velmar::frame::ResultBlock block = velmar::frame::allocateBlock(1 + regions + 2 * points);
    velmar::frame::BlockWriter out(block);
    out.appendCount(regions);
    for (const Region& region : table.regions) {
        if (!hasName(table, region, name)) continue;
        out.appendCount(region.points);
        out.append({table.pointsOf(region), 2 * region.points});
    }
    total = static_cast<int>(points);
    return block.release();
}

}  // namespace

float* ReadVelmarData1(const char* path) noexcept { return reportsOf(path, surfaceReports); }
float* ReadVelmarData2(const char* path) noexcept { return reportsOf(path, upperAirReports); }
float* ReadVelmarData8(const char* path) noexcept { return reportsOf(path, forecastReports); }
float* ReadVelmarData16(const char* path) noexcept { return reportsOf(path, shortReports); }

float* ReadVelmarData3(const char* path) noexcept {
    return guardedReader(-9, [&] { return readStationValues(path); });
}

float* ReadVelmarData780(const char* path) noexcept {
    return guarded<float*>(nullptr, [&] { return readPolylineFile(path, PolylineKind::type780).release(); });
}

float* ReadVelmarData777(const char* path) noexcept {
    return guarded<float*>(nullptr, [&] { return readPolylineFile(path, PolylineKind::type777).release(); });
}

float* ReadMap9(const char* path) noexcept {
    return guarded<float*>(nullptr, [&] { return readMap(path, state().maps).release(); });
}

void deleteMap9Ptr(float* block) noexcept { velmar::frame::releaseBlock(block); }

int readVelmarData5(const char* path) noexcept {
    return guarded(0, [&] {
        state().soundings = readSoundings(path);
        return 0;
    });
}

float* DiscreteAdd(int startYear, int startMonth, int startDay, int startHour, int endYear, int endMonth,
                   int endDay, int endHour, const char* directory, int stepHours) noexcept {
    if (stepHours != 1 && !areObservationHours(startHour, endHour)) return nullptr;
    return guarded<float*>(nullptr, [&] {
        const RainSpan span{dateKey(fullYear(startYear), startMonth, startDay, startHour),
                            dateKey(fullYear(endYear), endMonth, endDay, endHour), stepHours};
        return accumulateRain(directory, span).release();
    });
}

int readRegionData(const char* path) noexcept {
    return guarded(-1, [&] { return loadRegions(path); });
}

const char* countyNameFromRegion(float x, float y) noexcept {
    constexpr const char* nowhere = " ";
    const std::optional<RegionTable>& table = state().regions;
    if (!table) return nowhere;
    return guarded(nowhere, [&] {
        const Region* const region = findRegion(*table, x, y);
        return region == nullptr ? nowhere : table->nameOf(*region);
    });
}

const float* getSingleRegionBoundaryByOrder(int index, int* count) noexcept {
    if (count != nullptr) *count = 0;
    const std::optional<RegionTable>& table = state().regions;
    if (!table || index < 0 || static_cast<std::size_t>(index) >= table->regions.size()) return nullptr;
    return handOut(*table, table->regions[static_cast<std::size_t>(index)], count);
}

const float* getSingleRegionBoundaryByName(const char* name, int* count) noexcept {
    if (count != nullptr) *count = 0;
    const std::optional<RegionTable>& table = state().regions;
    if (!table || name == nullptr) return nullptr;
    for (const Region& region : table->regions)
        if (hasName(*table, region, name)) return handOut(*table, region, count);
    return nullptr;
}

float* getAllRegionBoundaryByName(const char* name, int* total) noexcept {
    int points = 0;
    const std::optional<RegionTable>& table = state().regions;
    float* const block = !table || name == nullptr
                             ? nullptr
                             : guarded<float*>(nullptr, [&] { return allOfName(*table, name, points); });
    if (total != nullptr) *total = points;
    return block;
}
