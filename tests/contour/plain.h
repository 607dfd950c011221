#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "contour/trace.h"
#include "grid/grid.h"
#include "grid/refine.h"

/// The methods of the contour subsystem as they would be written without a thought for speed.
namespace velmar::test {

struct PlainLine {
    float level;
    std::vector<float> xy;

    bool operator==(const PlainLine&) const = default;
};

/// Positions count from 1, as in the result. One work buffer takes both walks of a line.
class PlainTracer {
public:
    PlainTracer(const grid::GridView& grid, float missing, float level, std::size_t workBufferFloats)
        : grid_(grid), level_(level), work_(workBufferFloats) {
        const std::size_t positions = static_cast<std::size_t>((grid.nx + 2) * (grid.ny + 2));
        marked_[0].assign(positions, 0);
        marked_[1].assign(positions, 0);
        for (int j = 1; j <= grid.ny; ++j) {
            for (int i = 1; i <= grid.nx; ++i) {
                if (i < grid.nx) mark({0, i, j}, missing);
                if (j < grid.ny) mark({1, i, j}, missing);
            }
        }
    }

    std::vector<PlainLine> trace() {
        for (int j = 1; j < grid_.ny; ++j) {
            for (int i = 1; i < grid_.nx; ++i) {
                if (isMarked({0, i, j})) traceFrom({0, i, j}, i, j, 0, i, j - 1, 2);
                if (isMarked({1, i, j})) traceFrom({1, i, j}, i, j, 3, i - 1, j, 1);
            }
        }
        return lines_;
    }

private:
    /// Plane 0 holds edges along rows, plane 1 edges along columns.
    struct Edge {
        int plane, i, j;
        bool operator==(const Edge&) const = default;
    };

    float value(int i, int j) const { return grid_.at(i - 1, j - 1); }
    float endValue(const Edge& e) const { return e.plane == 0 ? value(e.i + 1, e.j) : value(e.i, e.j + 1); }
    std::size_t slot(const Edge& e) const { return static_cast<std::size_t>(e.j * (grid_.nx + 2) + e.i); }
    bool isMarked(const Edge& e) const { return marked_[e.plane][slot(e)] != 0; }

    void mark(const Edge& e, float missing) {
        const float a0 = value(e.i, e.j);
        const float a1 = endValue(e);
        const bool crossed = (a0 <= level_ && level_ < a1) || (level_ < a0 && a1 <= level_);
        marked_[e.plane][slot(e)] = crossed && a0 != missing && a1 != missing;
    }

    float fraction(const Edge& e) const {
        const float a0 = value(e.i, e.j);
        return (level_ - a0) / (endValue(e) - a0);
    }

    /// Sides of a cell: 0 bottom, 1 right, 2 top, 3 left.
    static Edge sideOf(int i, int j, int side) {
        if (side == 0) return {0, i, j};
        if (side == 1) return {1, i + 1, j};
        if (side == 2) return {0, i, j + 1};
        return {1, i, j};
    }

    int saddleExit(int i, int j, int entry) const {
        const double p = fraction(sideOf(i, j, 0));
        const double q = fraction(sideOf(i, j, 1));
        const double r = fraction(sideOf(i, j, 2));
        const double s = fraction(sideOf(i, j, 3));
        const bool bottomWithLeft =
            std::hypot(p, s) + std::hypot(1 - q, 1 - r) < std::hypot(1 - p, q) + std::hypot(1 - s, r);
        if (bottomWithLeft) return 3 - entry;
        return entry % 2 == 0 ? entry + 1 : entry - 1;
    }

    void write(std::size_t at, const Edge& e) {
        work_[at] = static_cast<float>(e.i) + (e.plane == 0 ? fraction(e) : 0.0F);
        work_[at + 1] = static_cast<float>(e.j) + (e.plane == 1 ? fraction(e) : 0.0F);
    }

    /// Returns the slot of the last point written; sets closed_ when the walk is back at the start.
    std::size_t walk(int i, int j, int entry, const Edge& start, std::size_t at, std::ptrdiff_t direction) {
        closed_ = false;
        while (i >= 1 && j >= 1 && i < grid_.nx && j < grid_.ny) {
            std::vector<int> exits;
            for (int side = 0; side < 4; ++side) {
                const Edge e = sideOf(i, j, side);
                if (side != entry && (isMarked(e) || (direction > 0 && e == start))) exits.push_back(side);
            }
            if (exits.empty()) break;
            const int exit = exits.size() == 1 ? exits[0] : saddleExit(i, j, entry);
            const Edge e = sideOf(i, j, exit);
            closed_ = direction > 0 && e == start;
            if (closed_ || !isMarked(e)) break;
            const std::size_t next = at + static_cast<std::size_t>(2 * direction);
            if (next < 4 || next + 1 >= work_.size() - 4) break;
            at = next;
            write(at, e);
            marked_[e.plane][slot(e)] = 0;
            i += exit == 1 ? 1 : exit == 3 ? -1 : 0;
            j += exit == 2 ? 1 : exit == 0 ? -1 : 0;
            entry = (exit + 2) % 4;
        }
        return at;
    }

    void traceFrom(const Edge& start, int i, int j, int entry, int backI, int backJ, int backEntry) {
        const std::size_t middle = work_.size() / 2 - work_.size() / 2 % 2;
        write(middle, start);
        marked_[start.plane][slot(start)] = 0;
        std::size_t last = walk(i, j, entry, start, middle, 1);
        if (closed_) {
            work_[last + 2] = work_[middle];
            work_[last + 3] = work_[middle + 1];
            last += 2;
        }
        const std::size_t first = walk(backI, backJ, backEntry, start, middle, -1);
        lines_.push_back({level_,
                          {work_.begin() + static_cast<std::ptrdiff_t>(first),
                           work_.begin() + static_cast<std::ptrdiff_t>(last + 2)}});
    }

    grid::GridView grid_;
    float level_;
    std::vector<std::uint16_t> marked_[2];
    std::vector<float> work_;
    std::vector<PlainLine> lines_;
    bool closed_ = false;
};

/// Refines a line of values that are `stride` apart, in place: its points stand `factor` strides apart.
inline void plainRefineLine(float* line, int count, int factor, std::size_t stride, float missing) {
    const auto at = [&](int point) -> float& {
        return line[static_cast<std::size_t>(point * factor) * stride];
    };
    for (int s = 0; s + 1 < count; ++s) {
        const float a0 = at(s);
        const float a1 = at(s + 1);
        const float s0 = s == 0 || at(s - 1) == missing ? a1 - a0 : (a1 - at(s - 1)) * 0.5F;
        const float s1 = s == count - 2 || at(s + 2) == missing ? a1 - a0 : (at(s + 2) - a0) * 0.5F;
        const float c3 = 2 * a0 - 2 * a1 + s0 + s1;
        const float c2 = 3 * a1 - 3 * a0 - 2 * s0 - s1;
        for (int k = 1; k < factor; ++k) {
            const float t = static_cast<float>(k) / static_cast<float>(factor);
            float& point = line[static_cast<std::size_t>(s * factor + k) * stride];
            point = a0 == missing || a1 == missing ? missing : a0 + s0 * t + c2 * (t * t) + c3 * (t * t * t);
        }
    }
}

inline grid::Grid plainRefine(const grid::GridView& grid, float missing, int fx, int fy) {
    grid::Grid fine;
    fine.nx = (grid.nx - 1) * fx + 1;
    fine.ny = (grid.ny - 1) * fy + 1;
    fine.values.resize(grid::valueCount(fine.nx, fine.ny));
    const auto width = static_cast<std::size_t>(fine.nx);
    for (int j = 0; j < grid.ny; ++j) {
        float* row = fine.values.data() + static_cast<std::size_t>(j * fy) * width;
        for (int i = 0; i < grid.nx; ++i) row[i * fx] = grid.at(i, j);
        plainRefineLine(row, grid.nx, fx, 1, missing);
    }
    for (std::size_t i = 0; i < width; ++i)
        plainRefineLine(fine.values.data() + i, grid.ny, fy, width, missing);
    return fine;
}

/// The values of a findCenters result, its class included.
inline std::vector<float> plainCenters(const grid::GridView& g, float missing, float x0, float y0, float dx,
                                       float dy) {
    float largest = -1e36F;
    float smallest = 1e36F;
    for (std::size_t k = 0; k < g.size(); ++k) {
        if (g.values[k] == missing) continue;
        if (g.values[k] > largest) largest = g.values[k];
        if (g.values[k] < smallest) smallest = g.values[k];
    }
    std::vector<float> result{0};
    std::vector<float> strengths;
    for (int i = 1; i + 1 < g.nx; ++i) {
        for (int j = 1; j + 1 < g.ny; ++j) {
            const float p = g.at(i, j);
            const float e = g.at(i + 1, j), w = g.at(i - 1, j), n = g.at(i, j + 1), s = g.at(i, j - 1);
            const float ne = g.at(i + 1, j + 1), nw = g.at(i - 1, j + 1), se = g.at(i + 1, j - 1),
                        sw = g.at(i - 1, j - 1);
            const bool low = p <= e && p < w && p < s && p < n && p < ne && p < nw && p < se;
            const bool high = p >= e && p > w && p > s && p > n && p > ne && p > sw && p > se && p > nw;
            if (!low && !high) continue;
            int steps = 0;
            const auto slope = [&](auto difference, int from, int end, int by) {
                float sum = 0;
                int count = 0;
                for (int k = from; k != end; k += by) {
                    const float d = difference(k);
                    if (low ? !(d < 0) : !(d > 0)) {
                        steps += count;
                        return sum / static_cast<float>(count);
                    }
                    sum += d;
                    ++count;
                }
                steps += count;
                return sum;
            };
            const float west = slope([&](int k) { return g.at(k, j) - g.at(k - 1, j); }, i, 0, -1);
            const float east = slope([&](int k) { return g.at(k, j) - g.at(k + 1, j); }, i, g.nx - 1, 1);
            const float south = slope([&](int k) { return g.at(i, k) - g.at(i, k - 1); }, j, 0, -1);
            const float north = slope([&](int k) { return g.at(i, k) - g.at(i, k - 1); }, j, g.ny - 1, 1);
            const float strength = west + east + south + north;
            strengths.push_back(strength);
            const float place[] = {high ? 1.0F : -1.0F,
                                   static_cast<float>(i) * dx + x0,
                                   static_cast<float>(j) * dy + y0,
                                   p,
                                   strength / (largest - smallest),
                                   static_cast<float>(steps),
                                   0};
            result.insert(result.end(), std::begin(place), std::end(place));
        }
    }
    float step = 5;
    for (const float strength : strengths) step = strength / 10 > step ? strength / 10 : step;
    for (std::size_t k = 0; k < strengths.size(); ++k) {
        result[7 * k + 7] = std::isnan(strengths[k] / step) ? 0 : std::trunc(strengths[k] / step) + 0.0F;
    }
    result[0] = static_cast<float>(strengths.size());
    result.push_back(0);
    return result;
}

}  // namespace velmar::test
