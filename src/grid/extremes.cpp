#include "grid/extremes.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/threads.h"

namespace velmar::grid {

namespace {

/// Enough running extremes side by side to keep vectors of any width busy.
constexpr std::size_t laneCount = 32;
using Lanes = std::array<float, laneCount>;

/// 0 and -0 are equal, so lanes may end up with either; the result is the one that comes first in the grid.
float firstEqual(std::span<const float> values, float extreme) {
    return extreme == 0.0F ? *std::find(values.begin(), values.end(), extreme) : extreme;
}

Extremes extremesOfPiece(std::span<const float> values, float missing) {
    Lanes largest;
    Lanes smallest;
    largest.fill(Extremes{}.largest);
    smallest.fill(Extremes{}.smallest);
    const auto take = [&](float value, std::size_t lane) {
        const bool above = (value > largest[lane]) & (value != missing);
        const bool below = (value < smallest[lane]) & (value != missing);
        largest[lane] = above ? value : largest[lane];
        smallest[lane] = below ? value : smallest[lane];
    };
    std::size_t k = 0;
    for (; k + laneCount <= values.size(); k += laneCount) {
        for (std::size_t lane = 0; lane < laneCount; ++lane) take(values[k + lane], lane);
    }
    for (std::size_t lane = 0; k < values.size(); ++k, ++lane) take(values[k], lane);
    return {firstEqual(values, *std::max_element(largest.begin(), largest.end())),
            firstEqual(values, *std::min_element(smallest.begin(), smallest.end()))};
}

}  // namespace

Extremes extremesOf(std::span<const float> values, float missing) {
    constexpr std::size_t pieceLength = std::size_t{1} << 16U;
    if (values.size() <= pieceLength) return extremesOfPiece(values, missing);
    std::vector<Extremes> pieces((values.size() + pieceLength - 1) / pieceLength);
    base::shareWork(pieces.size(), 0.2 * pieceLength, [&](std::size_t first, std::size_t last) {
        for (std::size_t k = first; k < last; ++k) {
            const std::size_t start = k * pieceLength;
            pieces[k] =
                extremesOfPiece(values.subspan(start, std::min(pieceLength, values.size() - start)), missing);
        }
    });
    // Of equal extremes, 0 and -0, that of the earlier piece remains.
    Extremes whole;
    for (const Extremes& piece : pieces) {
        if (piece.largest > whole.largest) whole.largest = piece.largest;
        if (piece.smallest < whole.smallest) whole.smallest = piece.smallest;
    }
    return whole;
}

}  // namespace velmar::grid
