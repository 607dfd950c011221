#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

/// Contours of stations without a thought for speed: every edge looks at every station, every edge is counted in
/// all triangles, every end looks at all ends.
namespace velmar::test {

struct PlainTriangle {
    std::size_t v[3];

    bool has(std::size_t k) const { return v[0] == k || v[1] == k || v[2] == k; }
};

class PlainTriangles {
public:
    PlainTriangles(const std::vector<float>& xs, const std::vector<float>& ys, const std::vector<float>& zs)
        : x(xs), y(ys), values(zs) {}

    std::vector<PlainTriangle> network() {
        if (!seed()) return {};
        for (std::size_t k = 0; k < triangles.size(); ++k) {
            const auto [a, b, c] = triangles[k].v;
            extend(a, b, c);
            extend(a, c, b);
            extend(b, c, a);
        }
        return triangles;
    }

    /// The lines of a level: the number of points, the level, the points.
    std::vector<float> lines(float level) {
        cut(level);
        std::vector<float> out;
        const std::vector<bool> starts = markStarts();
        used.assign(segments.size(), false);
        for (std::size_t k = 0; k < segments.size(); ++k)
            if (starts[k] && !used[k]) chain(k, level, out);
        for (std::size_t k = 0; k < segments.size(); ++k)
            if (segments[k].isCut && !used[k]) chain(k, level, out);
        return out;
    }

private:
    struct Segment {
        float x1, y1, x2, y2;
        bool isCut;
    };

    static double distance(double x1, double y1, double x2, double y2) {
        return std::sqrt((x1 - x2) * (x1 - x2) + (y1 - y2) * (y1 - y2));
    }

    bool seed() {
        std::size_t b = 0;
        std::size_t c = 0;
        double best = 10000;
        for (std::size_t k = 1; k < x.size(); ++k) {
            const double d = distance(x[k], y[k], x[0], y[0]);
            if (d < best) {
                best = d;
                b = k;
            }
        }
        if (b == 0) return false;
        const double dx = static_cast<double>(x[b]) - x[0];
        const double dy = static_cast<double>(y[b]) - y[0];
        const double mx = (static_cast<double>(x[0]) + x[b]) / 2;
        const double my = (static_cast<double>(y[0]) + y[b]) / 2;
        best = 10000;
        for (std::size_t k = 1; k < x.size(); ++k) {
            const double off =
                std::fabs(dx * (static_cast<double>(y[k]) - y[0]) - dy * (static_cast<double>(x[k]) - x[0])) /
                std::sqrt(dx * dx + dy * dy);
            const double d = distance(x[k], y[k], mx, my);
            if (k != b && off > 2.0 && d < best) {
                best = d;
                c = k;
            }
        }
        if (c == 0) return false;
        triangles.push_back({{0, b, c}});
        return true;
    }

    int count(std::size_t a, std::size_t b) const {
        int found = 0;
        for (const PlainTriangle& t : triangles) found += t.has(a) && t.has(b) ? 1 : 0;
        return found;
    }

    void extend(std::size_t p1, std::size_t p2, std::size_t p3) {
        if (count(p1, p2) > 1) return;
        double dx = static_cast<double>(x[p2]) - x[p1];
        if (std::fabs(dx) < 1e-6) dx = 1e-6;
        const double slope = (static_cast<double>(y[p2]) - y[p1]) / dx;
        const double offset = y[p1] - slope * x[p1];
        const auto code = [&](std::size_t k) {
            const double r = y[k] - slope * x[k] - offset;
            return r < -0.01 ? 111 : r > 0.01 ? 555 : 0;
        };
        const auto squared = [&](std::size_t i, std::size_t j) {
            const double ex = static_cast<double>(x[i]) - x[j];
            const double ey = static_cast<double>(y[i]) - y[j];
            return ex * ex + ey * ey;
        };
        const double c2 = squared(p1, p2);
        double best = 0;
        std::size_t w = 0;
        for (std::size_t k = 1; k < x.size(); ++k) {
            if (k == p1 || k == p2 || k == p3 || code(k) == 0 || code(k) == code(p3)) continue;
            const double a2 = squared(k, p2);
            const double b2 = squared(k, p1);
            if (!(a2 >= 1e-6 && b2 >= 1e-6)) continue;
            const double view = 1 - (a2 + b2 - c2) / (2 * std::sqrt(a2) * std::sqrt(b2));
            if (view > best) {
                best = view;
                w = k;
            }
        }
        if (w == 0 || count(p1, p2) > 1 || count(p1, w) > 1 || count(p2, w) > 1) return;
        triangles.push_back({{p1, p2, w}});
    }

    /// One entry per triangle.
    void cut(float level) {
        segments.assign(triangles.size(), {});
        for (std::size_t k = 0; k < triangles.size(); ++k) {
            const PlainTriangle& t = triangles[k];
            std::vector<float> ends;
            for (int e = 0; e < 3; ++e) {
                const std::size_t i = t.v[e];
                const std::size_t j = t.v[(e + 1) % 3];
                if (!((level - values[i]) * (level - values[j]) < 0)) continue;
                const float part = (level - values[i]) / (values[j] - values[i]);
                ends.push_back(x[i] + (x[j] - x[i]) * part);
                ends.push_back(y[i] + (y[j] - y[i]) * part);
            }
            if (ends.size() == 4) segments[k] = {ends[0], ends[1], ends[2], ends[3], true};
        }
    }

    static bool match(float x1, float y1, float x2, float y2) {
        return static_cast<double>(std::fabs(x1 - x2)) < 0.005 &&
               static_cast<double>(std::fabs(y1 - y2)) < 0.005;
    }

    int endsAt(float ex, float ey) const {
        int found = 0;
        for (const Segment& s : segments)
            if (s.isCut) found += (match(s.x1, s.y1, ex, ey) ? 1 : 0) + (match(s.x2, s.y2, ex, ey) ? 1 : 0);
        return found;
    }

    std::vector<bool> markStarts() {
        std::vector<bool> starts;
        for (Segment& s : segments) {
            bool start = s.isCut && endsAt(s.x1, s.y1) == 1;
            if (s.isCut && !start && endsAt(s.x2, s.y2) == 1) {
                s = {s.x2, s.y2, s.x1, s.y1, true};
                start = true;
            }
            starts.push_back(start);
        }
        return starts;
    }

    void chain(std::size_t first, float level, std::vector<float>& out) {
        std::vector<float> line{segments[first].x1, segments[first].y1, segments[first].x2,
                                segments[first].y2};
        used[first] = true;
        for (bool found = true; found;) {
            found = false;
            const float ex = line[line.size() - 2];
            const float ey = line[line.size() - 1];
            for (std::size_t k = 0; k < segments.size() && !found; ++k) {
                if (used[k] || !segments[k].isCut) continue;
                const Segment& s = segments[k];
                if (match(s.x1, s.y1, ex, ey)) {
                    line.insert(line.end(), {s.x2, s.y2});
                } else if (match(s.x2, s.y2, ex, ey)) {
                    line.insert(line.end(), {s.x1, s.y1});
                } else {
                    continue;
                }
                used[k] = true;
                found = true;
            }
        }
        out.push_back(static_cast<float>(line.size() / 2));
        out.push_back(level);
        out.insert(out.end(), line.begin(), line.end());
    }

    const std::vector<float>& x;
    const std::vector<float>& y;
    const std::vector<float>& values;
    std::vector<PlainTriangle> triangles;
    std::vector<Segment> segments;
    std::vector<bool> used;
};

}  // namespace velmar::test
