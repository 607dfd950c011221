#include "contour/refine.h"

#include <algorithm>
#include <cstddef>

namespace velmar::contour {

namespace {

using frame::Grid;
using frame::GridView;

/// The values that lie before, at both ends of, and behind each of a run of intervals. `before` or `after` is
/// null at an edge of the grid.
struct Neighbours {
    const float* before;
    const float* first;
    const float* last;
    const float* after;
};

/// A position in an interval, which runs from 0 to 1, and its powers.
struct Position {
    float t;
    float t2;
    float t3;
};

/// The positions of the new points; the interval's own first point is left out.
std::vector<Position> innerPositions(int factor) {
    std::vector<Position> positions;
    for (int k = 1; k < factor; ++k) {
        const float t = static_cast<float>(k) / static_cast<float>(factor);
        positions.push_back({t, t * t, t * t * t});
    }
    return positions;
}

/// The cubic over an interval with these values and slopes at its ends.
template <CubicForm form>
float cubic(float a0, float a1, float s0, float s1, const Position& at) {
    if constexpr (form == CubicForm::ascending) {
        const float c3 = 2.0F * a0 - 2.0F * a1 + s0 + s1;
        const float c2 = 3.0F * a1 - 3.0F * a0 - 2.0F * s0 - s1;
        return a0 + s0 * at.t + c2 * at.t2 + c3 * at.t3;
    } else {
        const float c3 = 2.0F * a0 + s0 - 2.0F * a1 + s1;
        const float c2 = 3.0F * a1 - s1 - 2.0F * s0 - 3.0F * a0;
        return c3 * at.t3 + c2 * at.t2 + s0 * at.t + a0;
    }
}

/// Interpolates at one position of `count` intervals that lie side by side; results are `stride` elements
/// apart.
template <CubicForm form>
void interpolate(const Neighbours& in, std::size_t count, const Position& at, float missing, float* out,
                 std::size_t stride) {
    const bool opens = in.before == nullptr;
    const bool closes = in.after == nullptr;
    const float* const before = opens ? in.first : in.before;
    const float* const after = closes ? in.last : in.after;
    for (std::size_t c = 0; c < count; ++c) {
        const float a0 = in.first[c];
        const float a1 = in.last[c];
        const float across = a1 - a0;
        const bool oneSidedFirst = opens | (before[c] == missing);
        const bool oneSidedLast = closes | (after[c] == missing);
        const bool undefined = (a0 == missing) | (a1 == missing);
        const float s0 = oneSidedFirst ? across : (a1 - before[c]) * 0.5F;
        const float s1 = oneSidedLast ? across : (after[c] - a0) * 0.5F;
        out[c * stride] = undefined ? missing : cubic<form>(a0, a1, s0, s1, at);
    }
}

/// Widens one row of `count` values by `factor`.
template <CubicForm form>
void widenRow(const float* row, std::size_t count, std::size_t factor, const std::vector<Position>& positions,
              float missing, float* out) {
    for (std::size_t i = 0; i < count; ++i) out[i * factor] = row[i];
    if (count < 2) return;
    const std::size_t lastInterval = count - 2;
    for (std::size_t k = 1; k < factor; ++k) {
        const Position& at = positions[k - 1];
        float* const target = out + k;
        const float* const second = lastInterval > 0 ? row + 2 : nullptr;
        interpolate<form>({nullptr, row, row + 1, second}, 1, at, missing, target, factor);
        if (lastInterval == 0) continue;
        interpolate<form>({row, row + 1, row + 2, row + 3}, lastInterval - 1, at, missing, target + factor,
                          factor);
        const float* const end = row + lastInterval;
        interpolate<form>({end - 1, end, end + 1, nullptr}, 1, at, missing, target + lastInterval * factor,
                          factor);
    }
}

template <CubicForm form>
void refineRowsAndColumns(const GridView& grid, float missing, const RefinementFactors& factors,
                          float* fine) {
    const auto count = static_cast<std::size_t>(grid.nx);
    const auto factor = static_cast<std::size_t>(factors.x);
    const std::size_t width = (count - 1) * factor + 1;
    const auto rowOf = [&](int j) {
        return fine + static_cast<std::size_t>(j) * static_cast<std::size_t>(factors.y) * width;
    };

    const std::vector<Position> alongRows = innerPositions(factors.x);
    for (int j = 0; j < grid.ny; ++j)
        widenRow<form>(grid.row(j), count, factor, alongRows, missing, rowOf(j));
    const std::vector<Position> alongColumns = innerPositions(factors.y);
    for (int j = 0; j + 1 < grid.ny; ++j) {
        const Neighbours rows{j > 0 ? rowOf(j - 1) : nullptr, rowOf(j), rowOf(j + 1),
                              j + 2 < grid.ny ? rowOf(j + 2) : nullptr};
        float* out = rowOf(j);
        for (const Position& at : alongColumns) interpolate<form>(rows, width, at, missing, out += width, 1);
    }
}

int chooseFactor(int wantedSize, int size) {
    const int factor = size > 0 ? wantedSize / size : 0;
    // 5 itself stays, but what exceeds it becomes 4: charts have always been drawn so.
    if (factor > 5) return 4;
    return std::max(factor, 1);
}

}  // namespace

RefinementFactors chooseFactors(int nx, int ny) { return {chooseFactor(200, nx), chooseFactor(50, ny)}; }

Grid refine(const GridView& grid, float missing, const RefinementFactors& factors) {
    Grid fine;
    if (grid.size() == 0) return fine;
    fine.nx = (grid.nx - 1) * factors.x + 1;
    fine.ny = (grid.ny - 1) * factors.y + 1;
    fine.values.resize(frame::valueCount(fine.nx, fine.ny));
    refineInto(grid, missing, factors, CubicForm::ascending, fine.values.data());
    return fine;
}

void refineInto(const GridView& grid, float missing, const RefinementFactors& factors, CubicForm form,
                float* fine) {
    if (form == CubicForm::ascending)
        refineRowsAndColumns<CubicForm::ascending>(grid, missing, factors, fine);
    else
        refineRowsAndColumns<CubicForm::descending>(grid, missing, factors, fine);
}

}  // namespace velmar::contour
