#include <optional>
#include <string_view>
#include <utility>

#include "capi/barrier.h"
#include "capi/state.h"
#include "files/file.h"
#include "files/regionFile.h"
#include "regions/regions.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

using regions::Region;
using regions::RegionTable;

int loadRegions(const char* path) {
    constexpr int loaded = 1;
    constexpr int pointMissing = 0;
    constexpr int refused = -1;
    std::optional<RegionTable>& kept = state().regions;
    if (kept) return refused;
    const std::optional<files::FileText> file = files::readWholeFile(path);
    if (!file) return refused;
    base::TextScanner in(file->view());
    std::optional<base::NamedOutlines> outlines = files::readRegions(in);
    if (!outlines) return refused;
    const bool isWhole = outlines->runs.empty() || outlines->runs.back().isWhole;
    // A file without regions is kept as well: no other is loaded after it.
    kept.emplace(std::move(*outlines));
    if (!isWhole) return pointMissing;
    return kept->runs.empty() ? refused : loaded;
}

bool hasName(const RegionTable& table, const Region& region, std::string_view name) {
    return name == table.nameOf(region);
}

const Region* regionAt(const RegionTable& table, int place) {
    const bool isThere = place >= 0 && static_cast<std::size_t>(place) < table.runs.size();
    return isThere ? &table.runs[static_cast<std::size_t>(place)] : nullptr;
}

const Region* firstOfName(const RegionTable& table, const char* name) {
    if (name == nullptr) return nullptr;
    for (const Region& region : table.runs)
        if (hasName(table, region, name)) return &region;
    return nullptr;
}

/// The points of a region as hosts see them: longitude and latitude in turn.
const float* coordinatesOf(const RegionTable& table, const Region& region) {
    static_assert(sizeof(base::LonLat) == 2 * sizeof(float));
    return reinterpret_cast<const float*>(table.pointsOf(region).data());
}

/// The points of the region that is chosen from the table, and their number (`count` may be null).
template <class Choose>
const float* boundary(int* count, Choose choose) noexcept {
    if (count != nullptr) *count = 0;
    return guarded<const float*>(nullptr, [&]() -> const float* {
        const std::optional<RegionTable>& table = state().regions;
        const Region* const region = table ? choose(*table) : nullptr;
        if (region == nullptr) return nullptr;
        if (count != nullptr) *count = static_cast<int>(region->pointCount);
        return coordinatesOf(*table, *region);
    });
}

ResultBlock allOfName(const RegionTable& table, std::string_view name, int& total) {
    std::size_t regions = 0;
    std::size_t points = 0;
    for (const Region& region : table.runs) {
        if (!hasName(table, region, name)) continue;
        ++regions;
        points += region.pointCount;
    }
    ResultBlock block = base::allocateFloats(1 + regions + 2 * points);
    BlockWriter out(block);
    out.appendCount(regions);
    for (const Region& region : table.runs) {
        if (!hasName(table, region, name)) continue;
        out.appendCount(region.pointCount);
        out.append(table.pointsOf(region));
    }
    total = static_cast<int>(points);
    return block;
}

}  // namespace
}  // namespace velmar::capi

using namespace velmar::capi;
using velmar::regions::Region;
using velmar::regions::RegionTable;

int readRegionData(const char* path) noexcept {
    return guarded(-1, [&] { return loadRegions(path); });
}

const char* countyNameFromRegion(float x, float y) noexcept {
    constexpr const char* nowhere = " ";
    return guarded(nowhere, [&] {
        const std::optional<RegionTable>& table = state().regions;
        const Region* const region = table ? velmar::regions::findRegion(*table, {x, y}) : nullptr;
        return region == nullptr ? nowhere : table->nameOf(*region);
    });
}

const float* getSingleRegionBoundaryByOrder(int index, int* count) noexcept {
    return boundary(count, [&](const RegionTable& table) { return regionAt(table, index); });
}

const float* getSingleRegionBoundaryByName(const char* name, int* count) noexcept {
    return boundary(count, [&](const RegionTable& table) { return firstOfName(table, name); });
}

float* getAllRegionBoundaryByName(const char* name, int* total) noexcept {
    int points = 0;
    float* const block = guarded<float*>(nullptr, [&]() -> float* {
        const std::optional<RegionTable>& table = state().regions;
        return !table || name == nullptr ? nullptr : allOfName(*table, name, points).release();
    });
    if (total != nullptr) *total = points;
    return block;
}
