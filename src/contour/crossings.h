#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "frame/grid.h"

namespace velmar::contour {

/// One bit per grid point, rows padded to whole words.
class BitPlane {
public:
    static constexpr int wordBits = 64;

    /// Memory is kept when a smaller plane follows; the bits are the caller's to set.
    void resize(int nx, int ny) {
        wordsPerRow_ = (static_cast<std::size_t>(nx) + wordBits - 1) / wordBits;
        words_.resize(wordsPerRow_ * static_cast<std::size_t>(ny));
    }

    std::size_t wordsPerRow() const { return wordsPerRow_; }
    std::uint64_t* row(int j) { return words_.data() + static_cast<std::size_t>(j) * wordsPerRow_; }
    const std::uint64_t* row(int j) const {
        return words_.data() + static_cast<std::size_t>(j) * wordsPerRow_;
    }

    bool test(int i, int j) const { return (row(j)[i / wordBits] >> (i % wordBits) & 1U) != 0; }
    void clear(int i, int j) { row(j)[i / wordBits] &= ~(std::uint64_t{1} << (i % wordBits)); }

private:
    std::size_t wordsPerRow_ = 0;
    std::vector<std::uint64_t> words_;
};

/// What is the same for all levels of a grid: which points have data and, for each word of 64 points of a
/// row, the range of their values. A level outside the range of a word is classified without a look at the
/// values, so that the cost of a level is that of the places where it lies.
class LevelIndex {
public:
    /// Points without data are those equal to `missing` and those that are not a number.
    void build(const frame::GridView& grid, float missing);

    const frame::GridView& grid() const { return grid_; }

    /// Whether any point with data is above the level and any other not.
    bool reaches(float level) const { return lowest_ <= level && level < highest_; }

    /// The bits of the points of row j that have data and lie above the level.
    void classifyRow(int j, float level, std::span<std::uint64_t> above) const;

    /// The bits of the points of row j that have data.
    std::span<const std::uint64_t> defined(int j) const { return {defined_.row(j), defined_.wordsPerRow()}; }

    std::size_t wordsPerRow() const { return defined_.wordsPerRow(); }

private:
    struct Range {
        float lowest;
        float highest;
    };

    static std::uint64_t summarise(const float* values, float missing, Range& range);

    frame::GridView grid_{};
    float lowest_ = 0.0F;
    float highest_ = 0.0F;
    BitPlane defined_;
    std::vector<Range> ranges_;
};

/// The grid edges that one level crosses: between a point that is above the level and one that is at it or
/// below, both with data.
struct Crossings {
    /// Bit (i, j): the edge from point (i, j) to (i + 1, j).
    BitPlane alongRow;
    /// Bit (i, j): the edge from point (i, j) to (i, j + 1). It has a row less than the grid.
    BitPlane alongColumn;

    void mark(const LevelIndex& index, float level);

private:
    std::vector<std::uint64_t> above_;
    std::vector<std::uint64_t> aboveNext_;
};

}  // namespace velmar::contour
