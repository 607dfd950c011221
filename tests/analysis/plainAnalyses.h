#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "analysis/nearestStation.h"
#include "base/elementary.h"

/// The analyses as they would be written without a thought for speed: every point looks at every station.
namespace velmar::test {

struct StationList {
    std::vector<float> lon, lat, value;

    int count() const { return static_cast<int>(value.size()); }
};

/// Columns and rows from a start by a step.
struct Nodes {
    int nx, ny;
    float x0, y0, dx, dy;
    float x1 = 0, y1 = 0;  // the last column and row as they were asked for

    std::size_t count() const { return static_cast<std::size_t>(nx) * static_cast<std::size_t>(ny); }
    float lon(std::size_t p) const { return x0 + static_cast<float>(static_cast<int>(p) % nx) * dx; }
    float lat(std::size_t p) const { return y0 + static_cast<float>(static_cast<int>(p) / nx) * dy; }
};

inline Nodes nodesBetween(int nx, int ny, float west, float east, float south, float north) {
    return {nx,
            ny,
            west,
            south,
            (east - west) / static_cast<float>(nx - 1),
            (north - south) / static_cast<float>(ny - 1),
            east,
            north};
}

inline float plainDistance(float gx, float gy, float sx, float sy) {
    const float dx =
        (gx - sx) * static_cast<float>(base::cosine(static_cast<double>((gy + sy) / 114.59156F)));
    const float dy = gy - sy;
    return std::sqrt(dx * dx + dy * dy);
}

inline void plainCap(std::vector<float>& g, const Nodes& nodes, const StationList& s, float radius) {
    for (std::size_t p = 0; p < g.size(); ++p) {
        float largest = -1.0e16F;
        bool found = false;
        for (std::size_t k = 0; k < s.value.size(); ++k) {
            const float dx = nodes.lon(p) - s.lon[k];
            const float dy = nodes.lat(p) - s.lat[k];
            if (!(std::sqrt(dx * dx + dy * dy) <= radius)) continue;
            found = true;
            if (s.value[k] > largest) largest = s.value[k];
        }
        if (!found)
            g[p] = -9999.0F;
        else if (largest < g[p])
            g[p] = largest;
    }
}

/// The nearest station of each point less than the radius away, -1 where there is none.
inline std::vector<int> plainNearest(const Nodes& nodes, const StationList& s, float radius, bool inBoxOnly) {
    std::vector<int> found(nodes.count(), -1);
    for (std::size_t p = 0; p < found.size(); ++p) {
        float best = 1.0e20F;
        for (std::size_t k = 0; k < s.value.size(); ++k) {
            const bool inBox = std::fabs(nodes.lon(p) - s.lon[k]) < 2 * radius &&
                               std::fabs(nodes.lat(p) - s.lat[k]) < 2 * radius;
            const float d = plainDistance(nodes.lon(p), nodes.lat(p), s.lon[k], s.lat[k]);
            if ((inBoxOnly && !inBox) || !(d < best)) continue;
            best = d;
            found[p] = static_cast<int>(k);
        }
        if (!(best < radius)) found[p] = -1;
    }
    return found;
}

/// The same as the library finds it.
inline std::vector<int> foundNearest(const Nodes& nodes, const StationList& s, float radius, bool inBoxOnly) {
    std::vector<int> found(nodes.count());
    const auto reach = inBoxOnly ? analysis::Reach::distanceAndBox : analysis::Reach::distance;
    analysis::findNearestStations(
        {nodes.x0, nodes.y0, nodes.dx, nodes.dy}, {nodes.nx, nodes.ny}, {s.lon, s.lat, s.value}, radius,
        reach, [&](std::size_t first, auto nearest) { std::ranges::copy(nearest, &found[first]); });
    return found;
}

/// The sum of weighted contributions at a point. False when a station stands at its very place, which then
/// gives the point its value.
struct BarnesSums {
    double sum = 0, weight = 0;

    bool add(float& point, const StationList& s, std::size_t first, const std::vector<float>& contribution,
             float gx, float gy, float radius, double width) {
        for (std::size_t k = first; k < s.value.size(); ++k) {
            const float d = plainDistance(gx, gy, s.lon[k], s.lat[k]);
            if (d == 0) {
                point = s.value[k];
                return false;
            }
            if (!(d < radius)) continue;
            const double w = base::exponential(-(static_cast<double>(d) * static_cast<double>(d)) / width);
            sum += w * static_cast<double>(contribution[k]);
            weight += w;
        }
        return true;
    }
};

inline std::vector<float> plainBarnes(float kappa, float radius, float gamma, const Nodes& nodes,
                                      const StationList& s, float maskRadius) {
    std::vector<float> g(nodes.count());
    for (std::size_t p = 0; p < g.size(); ++p) {
        BarnesSums sums;
        if (sums.add(g[p], s, 1, s.value, nodes.lon(p), nodes.lat(p), radius,
                     4.0 * static_cast<double>(kappa)))
            g[p] = static_cast<float>(sums.weight > 0 ? sums.sum / sums.weight : sums.sum);
    }
    std::vector<float> estimate = s.value;
    std::vector<float> residual(s.value.size());
    double power = 1;
    for (int pass = 1; pass <= 5; ++pass) {
        for (std::size_t k = 0; k < s.value.size(); ++k) {
            if (s.lon[k] > nodes.x0 && s.lon[k] < nodes.x1 && s.lat[k] > nodes.y0 && s.lat[k] < nodes.y1) {
                const float x = (s.lon[k] - nodes.x0) / nodes.dx, y = (s.lat[k] - nodes.y0) / nodes.dy;
                const float fx = x - std::trunc(x), fy = y - std::trunc(y);
                const float* at = g.data() + static_cast<int>(y) * nodes.nx + static_cast<int>(x);
                const float a = (1 - fx) * at[0] + fx * at[1];
                const float b = (1 - fx) * at[nodes.nx] + fx * at[nodes.nx + 1];
                estimate[k] = (1 - fy) * a + fy * b;
            }
            residual[k] = s.value[k] - estimate[k];
        }
        power *= static_cast<double>(gamma);
        const float reach = radius / static_cast<float>(pass + 2);
        for (std::size_t p = 0; p < g.size(); ++p) {
            BarnesSums sums;
            if (sums.add(g[p], s, 0, residual, nodes.lon(p), nodes.lat(p), reach,
                         4.0 * static_cast<double>(kappa) * power) &&
                sums.weight > 0)
                g[p] = static_cast<float>(g[p] + sums.sum / sums.weight);
        }
    }
    if (maskRadius > 0) plainCap(g, nodes, s, maskRadius);
    return g;
}

inline std::vector<float> plainCressman(const std::vector<float>& radii, const Nodes& nodes,
                                        const StationList& s, float maskRadius) {
    std::vector<float> xs, ys;
    std::vector<int> base;
    float total = 0;
    for (std::size_t k = 0; k < s.value.size(); ++k) {
        const float lon = s.lon[k] < nodes.x0   ? s.lon[k] + 360
                          : s.lon[k] > nodes.x1 ? s.lon[k] - 360
                                                : s.lon[k];
        xs.push_back((lon - nodes.x0) / nodes.dx);
        ys.push_back((s.lat[k] - nodes.y0) / nodes.dy);
        const int i = static_cast<int>(xs[k]), j = static_cast<int>(ys[k]);
        const bool used = i >= 0 && i < nodes.nx && j >= 0 && j < nodes.ny && s.value[k] != -9999;
        base.push_back(used ? j * nodes.nx + i : -9999);
        if (used) total += s.value[k];
    }
    std::vector<float> g(nodes.count(), total), w = g;
    std::vector<bool> blank(g.size(), false);
    for (std::size_t scan = 0; scan < radii.size(); ++scan) {
        const float r = radii[scan];
        for (std::size_t p = 0; p < g.size(); ++p) {
            const auto i = static_cast<float>(static_cast<int>(p) % nodes.nx),
                       j = static_cast<float>(static_cast<int>(p) / nodes.nx);
            double num = 0, den = 0;
            for (std::size_t k = 0; k < base.size(); ++k) {
                const float x = xs[k], y = ys[k];
                const float d = std::sqrt((i - x) * (i - x) + (j - y) * (j - y));
                if (base[k] == -9999 || x < i - r || x > i + r || y < j - r || y > j + r || d > r) continue;
                const int b = base[k];
                const int right = b % nodes.nx + 1 < nodes.nx ? 1 : 0;
                const int up = b / nodes.nx + 1 < nodes.ny ? nodes.nx : 0;
                const auto at = [&](int q) { return g[static_cast<std::size_t>(q)]; };
                const float fx = x - std::trunc(x), fy = y - std::trunc(y);
                const float a = at(b) + fx * (at(b + right) - at(b));
                const float c = at(b + up) + fx * (at(b + up + right) - at(b + up));
                const double rr = static_cast<double>(r) * static_cast<double>(r),
                             dd = static_cast<double>(d) * static_cast<double>(d);
                const double weight = (rr - dd) / (rr + dd);
                num += weight * static_cast<double>(s.value[k] - (a + fy * (c - a)));
                den += weight;
            }
            if (den > 1.0e-6)
                w[p] = static_cast<float>(num / den + g[p]);
            else if (scan == 2)
                blank[p] = true;
        }
        g = w;
    }
    for (std::size_t p = 0; p < g.size(); ++p)
        if (blank[p]) g[p] = -9999;
    if (maskRadius > 0) plainCap(g, nodes, s, maskRadius);
    return g;
}

}  // namespace velmar::test
