#include "grid/refine.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace velmar::grid {

namespace {

/// The values before, at both ends of, and after each of a run of intervals. `before` or `after` is
/// null at an edge of the grid.
struct Neighbours {
    const float* before;
    const float* first;
    const float* last;
    const float* after;
};

/// A position in an interval, which runs from 0 to 1, and its powers.
struct IntervalPosition {
    float t;
    float t2;
    float t3;
};

/// The position of the new point number k, from 1 on, of an interval that is divided into `factor` parts.
IntervalPosition innerPosition(int k, int factor) {
    const float t = static_cast<float>(k) / static_cast<float>(factor);
    return {t, t * t, t * t * t};
}

/// The cubic over an interval with these values and slopes at its ends.
template <CubicForm form>
float cubic(float a0, float a1, float s0, float s1, const IntervalPosition& at) {
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

/// Interpolates at one position of `count` intervals that lie side by side.
template <CubicForm form>
void interpolate(const Neighbours& in, std::size_t count, const IntervalPosition& at, float missing,
                 float* out) {
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
        // Everything is computed before anything is selected, so that the loop vectorises.
        const float centredFirst = (a1 - before[c]) * 0.5F;
        const float centredLast = (after[c] - a0) * 0.5F;
        const float s0 = oneSidedFirst ? across : centredFirst;
        const float s1 = oneSidedLast ? across : centredLast;
        const float value = cubic<form>(a0, a1, s0, s1, at);
        out[c] = undefined ? missing : value;
    }
}

/// Interpolates at one position of all intervals of a row of values, at least two.
template <CubicForm form>
void interpolateRow(std::span<const float> row, const IntervalPosition& at, float missing, float* out) {
    const float* const start = row.data();
    const std::size_t lastInterval = row.size() - 2;
    const float* const second = lastInterval > 0 ? start + 2 : nullptr;
    interpolate<form>({nullptr, start, start + 1, second}, 1, at, missing, out);
    if (lastInterval == 0) return;
    interpolate<form>({start, start + 1, start + 2, start + 3}, lastInterval - 1, at, missing, out + 1);
    const float* const end = start + lastInterval;
    interpolate<form>({end - 1, end, end + 1, nullptr}, 1, at, missing, out + lastInterval);
}

void copyToEvery(std::size_t factor, std::span<const float> values, float* out) {
    for (std::size_t i = 0; i < values.size(); ++i) out[i * factor] = values[i];
}

/// Widens rows.
template <CubicForm form>
class RowWidener {
public:
    RowWidener(std::size_t count, int factor, float missing)
        : factor_(factor), between_(count - 1), missing_(missing) {}

    void widen(std::span<const float> row, float* out) {
        const auto factor = static_cast<std::size_t>(factor_);
        copyToEvery(factor, row, out);
        if (row.size() < 2) return;
        for (int k = 1; k < factor_; ++k) {
            // Side by side first, so that whole vectors are stored; then each value is moved to its place.
            interpolateRow<form>(row, innerPosition(k, factor_), missing_, between_.data());
            copyToEvery(factor, between_, ++out);
        }
    }

private:
    int factor_;
    std::vector<float> between_;
    float missing_;
};

template <CubicForm form>
void refineRowsAndColumns(const GridView& grid, float missing, const RefinementFactors& factors,
                          float* fine) {
    const auto count = static_cast<std::size_t>(grid.nx);
    const auto factor = static_cast<std::size_t>(factors.x);
    const std::size_t width = (count - 1) * factor + 1;
    const auto rowOf = [&](int j) {
        return fine + static_cast<std::size_t>(j) * static_cast<std::size_t>(factors.y) * width;
    };

    RowWidener<form> widener(count, factors.x, missing);
    // Rows are widened when they are needed, so that they are still in cache for the columns.
    int widened = 0;
    const auto widenUpTo = [&](int last) {
        for (; widened <= std::min(last, grid.ny - 1); ++widened)
            widener.widen({grid.row(widened), count}, rowOf(widened));
    };
    widenUpTo(0);
    for (int j = 0; j + 1 < grid.ny; ++j) {
        widenUpTo(j + 2);
        const Neighbours rows{j > 0 ? rowOf(j - 1) : nullptr, rowOf(j), rowOf(j + 1),
                              j + 2 < grid.ny ? rowOf(j + 2) : nullptr};
        float* out = rowOf(j);
        for (int k = 1; k < factors.y; ++k)
            interpolate<form>(rows, width, innerPosition(k, factors.y), missing, out += width);
    }
}

int chooseFactor(int wantedSize, int size) {
    const int factor = size > 0 ? wantedSize / size : 0;
    // 5 itself stays, but anything above becomes 4: this is established behaviour.
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
    fine.values.resize(valueCount(fine.nx, fine.ny));
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

}  // namespace velmar::grid
