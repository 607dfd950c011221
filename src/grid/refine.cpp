#include "grid/refine.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

#include "base/threads.h"

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

/// Refines some rows of a grid, and what lies between each and the next one. Neighbouring rows that others refine are
/// widened here too, but beside the fine grid.
template <CubicForm form>
class RowsRefiner {
public:
    RowsRefiner(const GridView& grid, float missing, const RefinementFactors& factors, int first, int last,
                float* fine)
        : grid_(grid),
          missing_(missing),
          factors_(factors),
          first_(first),
          last_(last),
          width_(static_cast<std::size_t>(grid.nx - 1) * static_cast<std::size_t>(factors.x) + 1),
          fine_(fine),
          widener_(static_cast<std::size_t>(grid.nx), factors.x, missing),
          widened_(std::max(first - 1, 0)) {
        const int beside = (first > 0 ? 1 : 0) + std::min(grid.ny - last, 2);
        beside_.resize(static_cast<std::size_t>(beside) * width_);
    }

    void refine() {
        for (int j = first_; j < last_; ++j) {
            // Rows are widened when they are needed, so that they are still in cache for the columns.
            widenUpTo(j + 2);
            if (j + 1 == grid_.ny) break;
            const Neighbours rows{j > 0 ? rowOf(j - 1) : nullptr, rowOf(j), rowOf(j + 1),
                                  j + 2 < grid_.ny ? rowOf(j + 2) : nullptr};
            float* out = rowOf(j);
            for (int k = 1; k < factors_.y; ++k)
                interpolate<form>(rows, width_, innerPosition(k, factors_.y), missing_, out += width_);
        }
    }

private:
    /// Where a row is widened: in the fine grid, or beside it one before the first and two behind the last.
    float* rowOf(int j) {
        const auto place = [&](int row) { return static_cast<std::size_t>(row) * width_; };
        if (j < first_) return beside_.data();
        if (j < last_) return fine_ + place(j) * static_cast<std::size_t>(factors_.y);
        return beside_.data() + place(j - last_ + (first_ > 0 ? 1 : 0));
    }

    void widenUpTo(int last) {
        const auto count = static_cast<std::size_t>(grid_.nx);
        for (; widened_ <= std::min(last, grid_.ny - 1); ++widened_)
            widener_.widen({grid_.row(widened_), count}, rowOf(widened_));
    }

    const GridView grid_;
    const float missing_;
    const RefinementFactors factors_;
    const int first_;
    const int last_;
    const std::size_t width_;
    float* const fine_;
    RowWidener<form> widener_;
    int widened_;  ///< the next row to be widened
    std::vector<float> beside_;
};

template <CubicForm form>
void refineRowsAndColumns(const GridView& grid, float missing, const RefinementFactors& factors,
                          float* fine) {
    if (grid.size() == 0) return;
    const double pointsPerRow = static_cast<double>(grid.nx) * factors.x * factors.y;
    base::shareWork(
        static_cast<std::size_t>(grid.ny), pointsPerRow, [&](std::size_t first, std::size_t last) {
            RowsRefiner<form>(grid, missing, factors, static_cast<int>(first), static_cast<int>(last), fine)
                .refine();
        });
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
