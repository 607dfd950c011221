#include "contour/crossings.h"

namespace velmar::contour {

using grid::LevelIndex;
using grid::nextColumn;
using grid::Word;

void Crossings::mark(const LevelIndex& index, float level) {
    const grid::GridView& grid = index.grid();
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
            rowEdges[w] = (above_[w] ^ nextColumn(above_, w)) & data[w] & nextColumn(data, w);
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
