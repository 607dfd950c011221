#include "polygon/polygon.h"

namespace velmar::polygon {

namespace {

bool within(float value, float low, float high) { return low <= value && value <= high; }

bool contains(const Rectangle& r, Vertex p) { return within(p.x, r.xlo, r.xhi) && within(p.y, r.ylo, r.yhi); }

float clamped(float value, float low, float high) {
    if (value < low) return low;
    return value > high ? high : value;
}

/// Where the segment between two points, one inside and one not, passes the rim. The vertical sides are tried
/// first; a crossing on one of them is final, even one that rounding has put beyond the end of its side, as long
/// as the segment itself stays within the range of y.
Vertex crossing(const Rectangle& r, Vertex a, Vertex b) {
    const bool withinRows = within(a.y, r.ylo, r.yhi) && within(b.y, r.ylo, r.yhi);
    if (!(within(a.x, r.xlo, r.xhi) && within(b.x, r.xlo, r.xhi))) {
        const float x = a.x > r.xhi || b.x > r.xhi ? r.xhi : r.xlo;
        const float y = a.y - (a.x - x) * (a.y - b.y) / (a.x - b.x);
        if (withinRows || within(y, r.ylo, r.yhi)) return {x, y};
    }
    const float y = a.y > r.yhi || b.y > r.yhi ? r.yhi : r.ylo;
    return {a.x - (a.x - b.x) * (a.y - y) / (a.y - b.y), y};
}

}  // namespace

float* keepInside(const PolygonView& polygon, const Rectangle& r, float* outline) {
    const auto append = [&outline](Vertex p) {
        *outline++ = p.x;
        *outline++ = p.y;
    };
    bool previousInside = contains(r, polygon.at(0));
    for (std::size_t k = 0; k < polygon.count; ++k) {
        const Vertex point = polygon.at(k);
        const bool inside = contains(r, point);
        if (inside != previousInside) append(crossing(r, polygon.at(k - 1), point));
        append({clamped(point.x, r.xlo, r.xhi), clamped(point.y, r.ylo, r.yhi)});
        previousInside = inside;
    }
    return outline;
}

}  // namespace velmar::polygon
