#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/keptMemory.h"

namespace velmar::grid {

/// The bits of 64 neighbouring points of a row.
using Word = std::uint64_t;

/// One bit per grid point, rows padded to whole words.
class BitPlane {
public:
    static constexpr int wordBits = 64;

    BitPlane() = default;
    /// A plane of zeros.
    BitPlane(int nx, int ny) { resize(nx, ny); }

    /// Memory is kept when the new plane is smaller; the caller has to set the bits. The plane may be a part of a grid's,
    /// whose rows it numbers from the first one on.
    void resize(int nx, int rows, int firstRow = 0) {
        wordsPerRow_ = (static_cast<std::size_t>(nx) + wordBits - 1) / wordBits;
        words_.resize(wordsPerRow_ * static_cast<std::size_t>(rows));
        firstRow_ = firstRow;
    }

    std::size_t wordsPerRow() const { return wordsPerRow_; }
    std::size_t bytes() const { return base::bytesOf(words_); }
    Word* row(int j) { return words_.data() + static_cast<std::size_t>(j - firstRow_) * wordsPerRow_; }
    const Word* row(int j) const {
        return words_.data() + static_cast<std::size_t>(j - firstRow_) * wordsPerRow_;
    }

    bool test(int i, int j) const { return (row(j)[wordOf(i)] & bitOf(i)) != 0; }
    void set(int i, int j) { row(j)[wordOf(i)] |= bitOf(i); }
    void clear(int i, int j) { row(j)[wordOf(i)] &= ~bitOf(i); }

private:
    static std::size_t wordOf(int i) { return static_cast<unsigned>(i) / wordBits; }
    static Word bitOf(int i) { return Word{1} << (static_cast<unsigned>(i) % wordBits); }

    std::size_t wordsPerRow_ = 0;
    int firstRow_ = 0;
    std::vector<Word> words_;
};

/// Word `w` of a row with each bit replaced by that of the next column.
inline Word nextColumn(std::span<const Word> row, std::size_t w) {
    const Word next = w + 1 < row.size() ? row[w + 1] : 0;
    return row[w] >> 1U | next << (BitPlane::wordBits - 1);
}

/// The same with the bit of the column before.
inline Word previousColumn(std::span<const Word> row, std::size_t w) {
    const Word previous = w > 0 ? row[w - 1] : 0;
    return row[w] << 1U | previous >> (BitPlane::wordBits - 1);
}

}  // namespace velmar::grid
