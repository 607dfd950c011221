#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace velmar::wind {

/// The fine cells that a wind field is divided into, numbered row after row, with a flag each. A flag takes one
/// bit, so that the question whether any cell nearby is flagged is answered for about sixty cells at once.
class FlagGrid {
public:
    /// No flag is set at first. Throws std::bad_alloc.
    FlagGrid(std::int64_t columns, std::int64_t rows);

    std::int64_t columns() const { return columns_; }
    std::int64_t rows() const { return rows_; }
    bool contains(std::int64_t cell) const { return cell >= 0 && cell < columns_ * rows_; }

    bool test(std::int64_t cell) const { return (words_[wordOf(cell)] & bitOf(cell)) != 0; }
    void set(std::int64_t cell) { words_[wordOf(cell)] |= bitOf(cell); }

    /// How many cells nearFlags answers for at once.
    static constexpr int chunk(int reach) { return wordBits - 2 * reach; }

    /// The lowest bits, fewer than 64.
    static std::uint64_t firstBits(std::int64_t count) { return bitOf(count) - 1; }

    /// Which cells of the row, from this one to the right, have a flagged cell within this many columns and rows;
    /// bit 0 stands for the first of them. Bits beyond the end of the row have no meaning.
    std::uint64_t nearFlags(std::int64_t column, std::int64_t row, int reach) const;

private:
    static constexpr int wordBits = 64;

    static std::size_t wordOf(std::int64_t cell) { return static_cast<std::size_t>(cell) / wordBits; }
    static std::uint64_t bitOf(std::int64_t cell) {
        return std::uint64_t{1} << (static_cast<std::uint64_t>(cell) % wordBits);
    }

    /// The flags of 64 columns of a row; those beyond its ends are not set.
    std::uint64_t flagsFrom(std::int64_t column, std::int64_t row) const;

    std::int64_t columns_;
    std::int64_t rows_;
    std::vector<std::uint64_t> words_;
};

}  // namespace velmar::wind
