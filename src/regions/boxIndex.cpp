#include "regions/boxIndex.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "base/numbers.h"

namespace velmar::regions {

using base::LonLatBox;

namespace {

bool isSomewhere(const LonLatBox& box) { return box.west <= box.east && box.south <= box.north; }

LonLatBox extentOf(std::span<const LonLatBox> boxes) {
    constexpr float infinite = std::numeric_limits<float>::infinity();
    LonLatBox extent{infinite, -infinite, infinite, -infinite};
    for (const LonLatBox& box : boxes) {
        if (!isSomewhere(box)) continue;
        extent = {std::min(extent.west, box.west), std::max(extent.east, box.east),
                  std::min(extent.south, box.south), std::max(extent.north, box.north)};
    }
    return extent;
}

}  // namespace

/// Infinite and vanishing extents have everything in bucket 0.
BoxIndex::Axis::Axis(float lowest, float highest, std::uint32_t buckets) : origin(lowest), count(buckets) {
    const float scale = static_cast<float>(buckets) / (highest - lowest);
    bucketsPerUnit = std::isfinite(scale) && scale > 0 ? scale : 0;
}

std::uint32_t BoxIndex::Axis::bucketOf(float value) const {
    const int bucket = base::truncateToInt((value - origin) * bucketsPerUnit);
    return std::min(static_cast<std::uint32_t>(std::max(bucket, 0)), count - 1);
}

/// The buckets that a box reaches into.
struct BoxIndex::Reach {
    std::uint32_t firstColumn, lastColumn, firstRow, lastRow;

    std::size_t buckets() const {
        return std::size_t{lastColumn - firstColumn + 1} * std::size_t{lastRow - firstRow + 1};
    }
    template <class Visit>
    void forEach(std::uint32_t columns, Visit visit) const {
        for (std::uint32_t row = firstRow; row <= lastRow; ++row)
            for (std::uint32_t column = firstColumn; column <= lastColumn; ++column)
                visit(std::size_t{row} * columns + column);
    }
};

BoxIndex::Reach BoxIndex::reachOf(const LonLatBox& box) const {
    return {columns_.bucketOf(box.west), columns_.bucketOf(box.east), rows_.bucketOf(box.south),
            rows_.bucketOf(box.north)};
}

void BoxIndex::setAxes(const LonLatBox& extent, std::uint32_t columns, std::uint32_t rows) {
    columns_ = Axis(extent.west, extent.east, columns);
    rows_ = Axis(extent.south, extent.north, rows);
}

std::size_t BoxIndex::entryCount(std::span<const LonLatBox> boxes) const {
    return std::accumulate(boxes.begin(), boxes.end(), std::size_t{0},
                           [&](std::size_t sum, const LonLatBox& box) {
                               return isSomewhere(box) ? sum + reachOf(box).buckets() : sum;
                           });
}

BoxIndex::BoxIndex(std::span<const LonLatBox> boxes, std::uint32_t columns, std::uint32_t rows) {
    constexpr std::size_t entriesPerBox = 4;
    const LonLatBox extent = extentOf(boxes);
    setAxes(extent, columns, rows);
    while ((columns > 1 || rows > 1) && entryCount(boxes) > entriesPerBox * boxes.size()) {
        columns = std::max(columns / 2, 1U);
        rows = std::max(rows / 2, 1U);
        setAxes(extent, columns, rows);
    }
    fill(boxes);
}

void BoxIndex::fill(std::span<const LonLatBox> boxes) {
    // The list of a bucket is counted two places further on, so that the sums leave its start one place further on;
    // filling the list moves that to its end, which is the start of the next one.
    starts_.assign(std::size_t{columns_.count} * rows_.count + 2, 0);
    const auto forEachEntry = [&](auto visit) {
        for (std::uint32_t k = 0; k < boxes.size(); ++k)
            if (isSomewhere(boxes[k]))
                reachOf(boxes[k]).forEach(columns_.count, [&](std::size_t bucket) { visit(bucket, k); });
    };
    forEachEntry([&](std::size_t bucket, std::uint32_t) { ++starts_[bucket + 2]; });
    std::partial_sum(starts_.begin(), starts_.end(), starts_.begin());
    entries_.resize(starts_.back());
    forEachEntry([&](std::size_t bucket, std::uint32_t k) { entries_[starts_[bucket + 1]++] = k; });
}

std::span<const std::uint32_t> BoxIndex::near(base::LonLat place) const {
    if (starts_.empty()) return {};
    const std::size_t bucket =
        std::size_t{rows_.bucketOf(place.latitude)} * columns_.count + columns_.bucketOf(place.longitude);
    return std::span(entries_).subspan(starts_[bucket], starts_[bucket + 1] - starts_[bucket]);
}

}  // namespace velmar::regions
