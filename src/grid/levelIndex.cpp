#include "grid/levelIndex.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

#include "base/threads.h"

namespace velmar::grid {

namespace {

constexpr std::size_t wordBits = BitPlane::wordBits;
constexpr float infinity = std::numeric_limits<float>::infinity();
using Flags = std::array<unsigned char, wordBits>;  // each 0 or 1

/// Packs flags into bits, eight at a time: the multiplication moves the low bits of eight bytes side by side.
Word pack(const Flags& flags) {
    static_assert(std::endian::native == std::endian::little);
    Word word = 0;
    for (std::size_t group = 0; group < wordBits / 8; ++group) {
        Word bytes = 0;
        std::memcpy(&bytes, flags.data() + group * 8, 8);
        word |= (bytes * 0x0102040810204080U >> 56U) << group * 8;
    }
    return word;
}

/// The values of the points of one word.
using WordOfValues = std::array<float, wordBits>;

/// The values of word `w` of a row. Past the end of the row, `padded` is filled with not-a-number.
const float* valuesOf(std::span<const float> row, std::size_t w, WordOfValues& padded) {
    const std::span<const float> rest = row.subspan(w * wordBits);
    if (rest.size() >= wordBits) return rest.data();
    padded.fill(std::numeric_limits<float>::quiet_NaN());
    std::copy(rest.begin(), rest.end(), padded.begin());
    return padded.data();
}

/// The bits of a word of values that lie above the level.
Word pointsAbove(const float* values, float level) {
    Flags flags;
    for (std::size_t k = 0; k < wordBits; ++k) flags[k] = values[k] > level;
    return pack(flags);
}

/// Finds the range of a word of values and returns the bits of those with data.
Word summarise(const float* values, const DataRule& rule, LevelIndex::Range& range) {
    // Several running extremes side by side, so that they stay in vectors.
    constexpr std::size_t lanes = 16;
    std::array<float, lanes> lowest;
    std::array<float, lanes> highest;
    lowest.fill(infinity);
    highest.fill(-infinity);
    Flags flags;
    for (std::size_t first = 0; first < wordBits; first += lanes) {
        for (std::size_t lane = 0; lane < lanes; ++lane) {
            const float value = values[first + lane];
            // Not-a-number fails the second comparison.
            const bool hasData = (value != rule.missing) & (std::fabs(value) <= rule.largestMagnitude);
            flags[first + lane] = hasData;
            const bool lower = hasData & (value < lowest[lane]);
            const bool higher = hasData & (value > highest[lane]);
            lowest[lane] = lower ? value : lowest[lane];
            highest[lane] = higher ? value : highest[lane];
        }
    }
    range = {*std::min_element(lowest.begin(), lowest.end()),
             *std::max_element(highest.begin(), highest.end())};
    return pack(flags);
}

}  // namespace

void LevelIndex::build(const GridView& grid, const DataRule& rule) {
    grid_ = grid;
    defined_.resize(grid.nx, grid.ny);
    ranges_.resize(wordsPerRow() * static_cast<std::size_t>(grid.ny));
    const double nanosecondsEach = 0.5 * grid.nx;
    base::shareWork(static_cast<std::size_t>(grid.ny), nanosecondsEach,
                    [&](std::size_t first, std::size_t last) {
                        for (std::size_t j = first; j < last; ++j) summariseRow(static_cast<int>(j), rule);
                    });
    whole_ = rangeOfRows(0, grid.ny - 1);
}

void LevelIndex::summariseRow(int j, const DataRule& rule) {
    const std::span<const float> row(grid_.row(j), static_cast<std::size_t>(grid_.nx));
    Range* const ranges = ranges_.data() + static_cast<std::size_t>(j) * wordsPerRow();
    Word* const bits = defined_.row(j);
    WordOfValues padded;
    for (std::size_t w = 0; w < wordsPerRow(); ++w)
        bits[w] = summarise(valuesOf(row, w, padded), rule, ranges[w]);
}

LevelIndex::Range LevelIndex::rangeOfRows(int first, int last) const {
    Range total;
    for (const Range& range : std::span(rangesOf(first), rangesOf(last + 1))) {
        total.lowest = std::min(total.lowest, range.lowest);
        total.highest = std::max(total.highest, range.highest);
    }
    return total;
}

void LevelIndex::classifyRow(int j, float level, std::span<Word> above) const {
    const std::span<const Word> data = defined(j);
    const Range* range = rangesOf(j);
    const std::span<const float> row(grid_.row(j), static_cast<std::size_t>(grid_.nx));
    WordOfValues padded;
    for (std::size_t w = 0; w < above.size(); ++w, ++range) {
        if (!(range->highest > level)) {
            above[w] = 0;
        } else if (range->lowest > level) {
            above[w] = data[w];
        } else {
            above[w] = data[w] & pointsAbove(valuesOf(row, w, padded), level);
        }
    }
}

}  // namespace velmar::grid
