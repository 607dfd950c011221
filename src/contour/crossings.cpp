#include "contour/crossings.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>

namespace velmar::contour {

namespace {

using Word = std::uint64_t;
constexpr std::size_t wordBits = BitPlane::wordBits;
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

/// The bits of the values above the level; values are at most a word of them.
Word pointsAbove(std::span<const float> values, float level) {
    Flags flags{};
    for (std::size_t k = 0; k < values.size(); ++k) flags[k] = values[k] > level;
    return pack(flags);
}

/// The bit of each point's right neighbour.
Word shifted(std::span<const Word> words, std::size_t w) {
    const Word next = w + 1 < words.size() ? words[w + 1] : 0;
    return words[w] >> 1U | next << (wordBits - 1);
}

}  // namespace

/// Finds the range of the values with data, at most a word of them, and returns the bits of those.
Word LevelIndex::summarise(std::span<const float> values, float missing, Range& range) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    Flags flags{};
    float lowest = infinity;
    float highest = -infinity;
    for (std::size_t k = 0; k < values.size(); ++k) {
        const float value = values[k];
        const bool hasData = (value != missing) & (value == value);
        flags[k] = hasData;
        lowest = hasData & (value < lowest) ? value : lowest;
        highest = hasData & (value > highest) ? value : highest;
    }
    range = {lowest, highest};
    return pack(flags);
}

void LevelIndex::build(const frame::GridView& grid, float missing) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    grid_ = grid;
    lowest_ = infinity;
    highest_ = -infinity;
    defined_.resize(grid.nx, grid.ny);
    ranges_.resize(wordsPerRow() * static_cast<std::size_t>(grid.ny));
    const auto nx = static_cast<std::size_t>(grid.nx);
    auto range = ranges_.begin();
    for (int j = 0; j < grid.ny; ++j) {
        Word* definedWord = defined_.row(j);
        for (std::size_t first = 0; first < nx; first += wordBits) {
            *definedWord++ =
                summarise({grid.row(j) + first, std::min(wordBits, nx - first)}, missing, *range);
            lowest_ = std::min(lowest_, range->lowest);
            highest_ = std::max(highest_, range->highest);
            ++range;
        }
    }
}

void LevelIndex::classifyRow(int j, float level, std::span<Word> above) const {
    const std::span<const Word> data = defined(j);
    const Range* range = ranges_.data() + static_cast<std::size_t>(j) * wordsPerRow();
    const auto nx = static_cast<std::size_t>(grid_.nx);
    for (std::size_t w = 0; w < above.size(); ++w, ++range) {
        if (!(range->highest > level)) {
            above[w] = 0;
        } else if (range->lowest > level) {
            above[w] = data[w];
        } else {
            const std::size_t first = w * wordBits;
            above[w] = data[w] & pointsAbove({grid_.row(j) + first, std::min(wordBits, nx - first)}, level);
        }
    }
}

void Crossings::mark(const LevelIndex& index, float level) {
    const frame::GridView& grid = index.grid();
    const std::size_t words = index.wordsPerRow();
    alongRow.resize(grid.nx, grid.ny);
    alongColumn.resize(grid.nx, grid.ny - 1);
    above_.resize(words);
    aboveNext_.resize(words);
    index.classifyRow(0, level, above_);
    for (int j = 0; j < grid.ny; ++j) {
        const std::span<const Word> data = index.defined(j);
        Word* const rowEdges = alongRow.row(j);
        for (std::size_t w = 0; w < words; ++w) {
            rowEdges[w] = (above_[w] ^ shifted(above_, w)) & data[w] & shifted(data, w);
        }
        if (j + 1 == grid.ny) break;
        index.classifyRow(j + 1, level, aboveNext_);
        const std::span<const Word> dataNext = index.defined(j + 1);
        Word* const columnEdges = alongColumn.row(j);
        for (std::size_t w = 0; w < words; ++w)
            columnEdges[w] = (above_[w] ^ aboveNext_[w]) & data[w] & dataNext[w];
        above_.swap(aboveNext_);
    }
}

}  // namespace velmar::contour
