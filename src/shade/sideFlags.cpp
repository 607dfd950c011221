#include "shade/sideFlags.h"

#include <algorithm>

namespace velmar::shade {

using grid::BitPlane;
using grid::LevelIndex;
using grid::nextColumn;
using grid::previousColumn;
using grid::Word;

namespace {

void findDefinedCells(const LevelIndex& index, const Strip& strip, BitPlane& cells) {
    for (int j = strip.jmin; j < strip.jmax; ++j) {
        const std::span<const Word> lower = index.defined(j);
        const std::span<const Word> upper = index.defined(j + 1);
        Word* const bits = cells.row(j);
        for (std::size_t w = 0; w < lower.size(); ++w)
            bits[w] = lower[w] & upper[w] & nextColumn(lower, w) & nextColumn(upper, w);
    }
}

/// The strip's edge is not an undefined boundary: sides on its first and last row belong to one cell only.
void markRowSides(const BitPlane& cells, const Strip& strip, SideFlags& flags) {
    for (int j = strip.jmin; j <= strip.jmax; ++j) {
        const bool onEdge = j == strip.jmin || j == strip.jmax;
        const Word* const below = cells.row(j == strip.jmin ? j : j - 1);
        const Word* const above = cells.row(j == strip.jmax ? j - 1 : j);
        for (std::size_t w = 0; w < cells.wordsPerRow(); ++w) {
            flags.usable.row(j)[w] = below[w] | above[w];
            flags.boundary.row(j)[w] = onEdge ? 0 : below[w] ^ above[w];
        }
    }
}

void markColumnSides(const BitPlane& cells, const Strip& strip, int nx, SideFlags& flags) {
    for (int j = strip.jmin; j < strip.jmax; ++j) {
        const std::span<const Word> right(cells.row(j), cells.wordsPerRow());
        for (std::size_t w = 0; w < right.size(); ++w) {
            const Word left = previousColumn(right, w);
            flags.usable.row(j)[w] = left | right[w];
            flags.boundary.row(j)[w] = left ^ right[w];
        }
        flags.boundary.clear(0, j);
        flags.boundary.clear(nx - 1, j);
    }
}

}  // namespace

void StripSides::resize(int nx, const Strip& strip) {
    const auto resize = [&](BitPlane& plane) { plane.resize(nx, strip.rows(), strip.jmin); };
    resize(definedCells);
    for (SideFlags* const flags : {&alongRow, &alongColumn}) {
        resize(flags->usable);
        resize(flags->boundary);
        resize(flags->walked);
    }
}

void StripSides::markUndefinedSides(const LevelIndex& index, const Strip& strip) {
    findDefinedCells(index, strip, definedCells);
    markRowSides(definedCells, strip, alongRow);
    markColumnSides(definedCells, strip, index.grid().nx, alongColumn);
}

void StripSides::clearWalked(const Strip& strip) {
    for (SideFlags* const flags : {&alongRow, &alongColumn})
        std::fill(flags->walked.row(strip.jmin), flags->walked.row(strip.jmax + 1), Word{0});
}

}  // namespace velmar::shade
