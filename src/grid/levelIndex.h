#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "grid/bitPlane.h"
#include "grid/grid.h"

namespace velmar::grid {

/// Which grid points have data: those whose value is a number, not equal to `missing` and not beyond the
/// largest magnitude.
struct DataRule {
    float missing;
    float largestMagnitude = std::numeric_limits<float>::infinity();
};

/// What is the same for all levels of a grid: which points have data and, for each word of 64 points of a
/// row, the range of their values. Words whose range does not include the level are classified without looking at
/// their values, so that a level costs only as much as the places where it lies.
class LevelIndex {
public:
    void build(const GridView& grid, const DataRule& rule);

    const GridView& grid() const { return grid_; }

    /// Whether some point with data is above the level and some other is not.
    bool reaches(float level) const { return whole_.lowest <= level && level < whole_.highest; }

    /// The largest value of points with data.
    float highest() const { return whole_.highest; }

    /// The bits of the points of row j that have data and lie above the level.
    void classifyRow(int j, float level, std::span<Word> above) const;

    /// The bits of the points of row j that have data.
    std::span<const Word> defined(int j) const { return {defined_.row(j), defined_.wordsPerRow()}; }

    bool hasData(int i, int j) const { return defined_.test(i, j); }

    std::size_t wordsPerRow() const { return defined_.wordsPerRow(); }

    /// Size of the memory in use.
    std::size_t bytes() const { return defined_.bytes() + base::bytesOf(ranges_); }

    /// Smallest and largest value of points with data; the bounds are reversed when there are no such points.
    struct Range {
        float lowest = std::numeric_limits<float>::infinity();
        float highest = -std::numeric_limits<float>::infinity();
    };

    /// The range of the rows from `first` to `last`.
    Range rangeOfRows(int first, int last) const;

private:
    void summariseRow(int j, const DataRule& rule);
    const Range* rangesOf(int j) const {
        return ranges_.data() + static_cast<std::size_t>(j) * wordsPerRow();
    }

    GridView grid_{};
    Range whole_;
    BitPlane defined_;
    std::vector<Range> ranges_;
};

}  // namespace velmar::grid
