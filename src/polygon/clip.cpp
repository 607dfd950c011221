#include "polygon/polygon.h"

#include <array>

namespace velmar::polygon {

namespace {

/// Where the inside of an edge lies.
enum class Inside { above, below, left, right, nowhere };

Inside insideOf(const ClipEdge& edge) {
    if (edge.from.x < edge.to.x) return Inside::above;
    if (edge.from.x > edge.to.x) return Inside::below;
    if (edge.from.y < edge.to.y) return Inside::left;
    if (edge.from.y > edge.to.y) return Inside::right;
    return Inside::nowhere;
}

/// The line of an edge and its inside.
struct HalfPlane {
    Inside inside;
    Vertex on;

    bool contains(Vertex p) const {
        switch (inside) {
            case Inside::above:
                return p.y >= on.y;
            case Inside::below:
                return p.y <= on.y;
            case Inside::left:
                return p.x <= on.x;
            case Inside::right:
                return p.x >= on.x;
            case Inside::nowhere:
                break;
        }
        return false;
    }

    /// Where the segment between two points, one inside and one not, passes the line.
    Vertex crossing(Vertex from, Vertex to) const {
        if (inside == Inside::above || inside == Inside::below)
            return {from.x + (to.x - from.x) * (on.y - from.y) / (to.y - from.y), on.y};
        return {on.x, from.y + (to.y - from.y) * (on.x - from.x) / (to.x - from.x)};
    }
};

void append(std::vector<float>& polygon, Vertex p) {
    polygon.push_back(p.x);
    polygon.push_back(p.y);
}

}  // namespace

std::vector<float> clipByEdge(const PolygonView& polygon, const ClipEdge& edge) {
    const HalfPlane half{insideOf(edge), edge.from};
    std::vector<float> clipped;
    if (polygon.count == 0) return clipped;
    clipped.reserve(3 * polygon.count);
    Vertex previous = polygon.at(polygon.count - 1);
    for (std::size_t k = 0; k < polygon.count; ++k) {
        const Vertex point = polygon.at(k);
        const bool inside = half.contains(point);
        if (inside != half.contains(previous)) append(clipped, half.crossing(previous, point));
        if (inside) append(clipped, point);
        previous = point;
    }
    return clipped;
}

std::vector<float> clipByRectangle(const PolygonView& polygon, const Rectangle& rectangle) {
    const auto& [xlo, ylo, xhi, yhi] = rectangle;
    const std::array<Vertex, 5> corners{{{xlo, ylo}, {xhi, ylo}, {xhi, yhi}, {xlo, yhi}, {xlo, ylo}}};
    std::vector<float> clipped = clipByEdge(polygon, {corners[0], corners[1]});
    for (std::size_t side = 1; side < 4; ++side)
        clipped = clipByEdge({clipped.data(), clipped.size() / 2}, {corners[side], corners[side + 1]});
    return clipped;
}

}  // namespace velmar::polygon
