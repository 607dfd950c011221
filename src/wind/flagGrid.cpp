#include "wind/flagGrid.h"

#include <cstddef>
#include <limits>
#include <new>

namespace velmar::wind {

FlagGrid::FlagGrid(std::int64_t columns, std::int64_t rows) : columns_(columns), rows_(rows) {
    if (columns > std::numeric_limits<std::ptrdiff_t>::max() / rows) throw std::bad_alloc();
    // One word more than the flags need: flagsFrom reads two at a time.
    words_.resize(wordOf(columns * rows) + 2);
}

std::uint64_t FlagGrid::flagsFrom(std::int64_t column, std::int64_t row) const {
    const std::int64_t first = std::max<std::int64_t>(column, 0);
    const std::int64_t count = std::min(column + wordBits, columns_) - first;
    const std::int64_t cell = row * columns_ + first;
    const auto shift = static_cast<unsigned>(cell % wordBits);
    const std::size_t word = wordOf(cell);
    std::uint64_t flags = words_[word] >> shift;
    if (shift > 0) flags |= words_[word + 1] << (wordBits - shift);
    if (count < wordBits) flags &= firstBits(count);
    return flags << static_cast<unsigned>(first - column);
}

std::uint64_t FlagGrid::nearFlags(std::int64_t column, std::int64_t row, int reach) const {
    const std::int64_t lowest = std::max<std::int64_t>(row - reach, 0);
    const std::int64_t highest = std::min(row + reach, rows_ - 1);
    std::uint64_t flags = 0;
    for (std::int64_t r = lowest; r <= highest; ++r) flags |= flagsFrom(column - reach, r);
    std::uint64_t near = flags;
    for (int d = 1; d <= 2 * reach; ++d) near |= flags >> static_cast<unsigned>(d);
    return near;
}

}  // namespace velmar::wind
