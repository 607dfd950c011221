#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/points.h"

namespace velmar::regions {

/// Finds the boxes that may hold a place without looking at the others: their common extent is divided into
/// buckets, each with a list of the boxes that reach into it. The lists have a few entries for each box.
class BoxIndex {
public:
    BoxIndex() = default;

    /// Divides into this many columns and rows of buckets, or fewer where boxes overlap so much that the lists would
    /// become long.
    BoxIndex(std::span<const base::LonLatBox> boxes, std::uint32_t columns, std::uint32_t rows);

    /// The numbers, in rising order, of all boxes that hold a place, and of some others near it.
    std::span<const std::uint32_t> near(base::LonLat place) const;

private:
    /// Buckets along one axis. They are in the order of the values: a value between two others is in a bucket between
    /// theirs.
    struct Axis {
        float origin = 0;
        float bucketsPerUnit = 0;
        std::uint32_t count = 1;

        Axis(float lowest, float highest, std::uint32_t buckets);
        Axis() = default;
        std::uint32_t bucketOf(float value) const;
    };

    struct Reach;
    Reach reachOf(const base::LonLatBox& box) const;
    void setAxes(const base::LonLatBox& extent, std::uint32_t columns, std::uint32_t rows);
    std::size_t entryCount(std::span<const base::LonLatBox> boxes) const;
    void fill(std::span<const base::LonLatBox> boxes);

    Axis columns_;
    Axis rows_;
    std::vector<std::size_t> starts_;     ///< of each bucket's list, then the end of the last one
    std::vector<std::uint32_t> entries_;  ///< all lists, one after another
};

}  // namespace velmar::regions
