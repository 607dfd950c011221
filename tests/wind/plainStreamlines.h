#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

/// Streamlines as they would be drawn without a thought for speed: every cell looks at its whole neighbourhood,
/// every step at all four corners, every colour at the whole table.
namespace velmar::test {

struct PlainWind {
    int nx, ny;
    std::vector<float> u, v, c;
    float undef = 9999;
    bool coloured = true;
    std::vector<float> levels{};
    std::vector<int> colours{};
    int density = 5;
};

struct PlainPlace {
    float startLon, endLon, startLat, endLat, lonStep, latStep;
};

class PlainStreamlines {
public:
    PlainStreamlines(const PlainWind& wind, const PlainPlace& place, int& colour)
        : w(wind), at(place), current(colour) {
        scale = std::clamp(200 / std::max(w.nx, w.ny) + w.density - 5, 1, 10);
        fact = 0.5F / static_cast<float>(scale);
        iss = w.nx * scale;
        jss = w.ny * scale;
        flags.assign(static_cast<std::size_t>(iss * jss), 0);
    }

    std::vector<float> block() {
        for (int cj = 0; cj < jss; ++cj)
            for (int ci = 0; ci < iss; ++ci)
                if (flagsNear(ci, cj) == 0) seed(ci, cj);
        std::vector<float> all{0, 0};
        all.insert(all.end(), points.begin(), points.end());
        all.insert(all.end(), arrows.begin(), arrows.end());
        all[1] = static_cast<float>(all.size());
        for (const float value : {0.0F, -1.0F, static_cast<float>(w.nx), static_cast<float>(w.ny),
                                  at.startLon, at.startLat, at.endLon, at.endLat, at.lonStep, at.latStep})
            all.push_back(value);
        for (std::size_t k = 0; k < w.u.size(); ++k) {
            all.push_back(w.u[k]);
            all.push_back(w.v[k]);
        }
        all[0] = static_cast<float>(all.size() - 1);
        return all;
    }

private:
    int flagsNear(int ci, int cj) const {
        const int dis = w.density < 5 ? 3 : w.density > 5 ? 1 : 2;
        int sum = 0;
        for (int j = std::max(cj - dis, 0); j < std::min(cj + dis + 1, jss); ++j)
            for (int i = std::max(ci - dis, 0); i < std::min(ci + dis + 1, iss); ++i)
                sum += flags[static_cast<std::size_t>(j * iss + i)];
        return sum;
    }

    void add(float pen, float x, float y) {
        points.insert(points.end(), {pen, x, y, static_cast<float>(current)});
    }
    float lon(float x) const { return at.startLon + ((x + 1.0F) - 1.0F) * at.lonStep; }
    float lat(float y) const { return at.startLat + ((y + 1.0F) - 1.0F) * at.latStep; }

    void seed(int ci, int cj) {
        const float x0 = static_cast<float>(ci) / static_cast<float>(scale);
        const float y0 = static_cast<float>(cj) / static_cast<float>(scale);
        for (const bool forward : {true, false}) {
            add(0, lon(x0), lat(y0));
            trace(x0, y0, forward);
        }
    }

    int lookUp(float value) const {
        const std::size_t count = w.levels.size();
        if (count == 0) return 1;
        if (count == 1 || value < w.levels[1]) return w.colours[0];
        for (std::size_t k = 1; k + 1 < count; ++k)
            if (w.levels[k] <= value && value < w.levels[k + 1]) return w.colours[k];
        return w.colours[count - 1];
    }

    bool missesAny(const std::vector<float>& g, std::size_t p) const {
        const auto nx = static_cast<std::size_t>(w.nx);
        return g[p] == w.undef || g[p + 1] == w.undef || g[p + nx] == w.undef || g[p + nx + 1] == w.undef;
    }
    float between(const std::vector<float>& g, std::size_t p, float fx, float fy) const {
        const auto nx = static_cast<std::size_t>(w.nx);
        const float r0 = g[p] + (g[p + 1] - g[p]) * fx;
        const float r1 = g[p + nx] + (g[p + nx + 1] - g[p + nx]) * fx;
        return r0 + (r1 - r0) * fy;
    }

    void colourAt(std::size_t p, float fx, float fy) {
        if (w.coloured) icol = missesAny(w.c, p) ? 15 : lookUp(between(w.c, p, fx, fy));
        if (icol != jcol && icol > -1) current = std::clamp(icol, 0, 99);
        jcol = icol;
    }

    void trace(float x, float y, bool forward) {
        int last = -999;
        int repeats = 0;
        int counter = forward ? 0 : 19;
        bool pending = false;
        float arrowLon = lon(x);
        float arrowLat = lat(y);
        while (x >= 0 && x < static_cast<float>(w.nx - 1) && y >= 0 && y < static_cast<float>(w.ny - 1)) {
            const int ii = static_cast<int>(x);
            const int jj = static_cast<int>(y);
            const float fx = x - static_cast<float>(ii);
            const float fy = y - static_cast<float>(jj);
            const auto p = static_cast<std::size_t>(jj * w.nx + ii);
            if (missesAny(w.u, p) || missesAny(w.v, p)) return;
            colourAt(p, fx, fy);
            float du = between(w.u, p, fx, fy);
            float dv = between(w.v, p, fx, fy);
            if (std::fabs(du) < 0.1F && std::fabs(dv) < 0.1F) return;
            if (!std::isfinite(du) || !std::isfinite(dv)) return;
            const float longer = std::fabs(du) > std::fabs(dv) ? std::fabs(du) : std::fabs(dv);
            du = du / longer * fact;
            dv = dv / longer * fact;
            x = forward ? x + du : x - du;
            y = forward ? y + dv : y - dv;
            const int k = static_cast<int>(y * static_cast<float>(scale)) * iss +
                          static_cast<int>(x * static_cast<float>(scale));
            if (k < 0 || k >= iss * jss || flags[static_cast<std::size_t>(k)] == 1) return;
            if (k != last) {
                if (last > -1) flags[static_cast<std::size_t>(last)] = 1;
                repeats = 0;
            } else if (++repeats > 10) {
                return;
            }
            last = k;
            const float toLon = lon(x);
            const float toLat = lat(y);
            if (icol > -1) {
                if (pending) add(0, previousLon, previousLat);
                pending = false;
                add(1, toLon, toLat);
            } else {
                pending = true;
            }
            previousLon = toLon;
            previousLat = toLat;
            if (++counter > 20) {
                if (icol > -1 && forward) arrow(arrowLon, arrowLat, toLon, toLat);
                if (icol > -1 && !forward) arrow(toLon, toLat, arrowLon, arrowLat);
                counter = 0;
            }
            arrowLon = toLon;
            arrowLat = toLat;
        }
    }

    void arrow(float lon1, float lat1, float lon2, float lat2) {
        arrows.insert(arrows.end(), {2, lon1, lat1, lon2, lat2, static_cast<float>(current)});
    }

    const PlainWind& w;
    const PlainPlace& at;
    int& current;
    int scale, iss, jss;
    float fact;
    std::vector<int> flags;
    std::vector<float> points, arrows;
    int icol = 1;
    int jcol = -9;
    float previousLon = 0, previousLat = 0;
};

}  // namespace velmar::test
