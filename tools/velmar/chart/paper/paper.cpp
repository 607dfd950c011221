#include "chart/paper/paper.h"

#include <algorithm>
#include <array>

namespace velmar::tool {
namespace {

constexpr std::array<PaperPoint, 4> corners{{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};

double dot(PaperPoint a, PaperPoint b) { return a.x * b.x + a.y * b.y; }

/// Half of the box's extent in a direction.
double reach(const TurnedBox& box, PaperPoint direction) {
    return (box.size.width * std::fabs(dot(box.along(), direction)) +
            box.size.height * std::fabs(dot(box.across(), direction))) /
           2;
}

/// At least half of the box's diagonal.
double radiusOf(const TurnedBox& box) { return (box.size.width + box.size.height) / 2; }

}  // namespace

// Two boxes are apart when their shadows on one of the four sides' directions are.
bool overlap(const TurnedBox& a, const TurnedBox& b) {
    const PaperPoint between = b.center - a.center;
    const double reaches = radiusOf(a) + radiusOf(b);
    if (dot(between, between) > reaches * reaches) return false;
    const std::array directions{a.along(), a.across(), b.along(), b.across()};
    return std::ranges::all_of(directions, [&](PaperPoint direction) {
        return std::fabs(dot(between, direction)) < reach(a, direction) + reach(b, direction);
    });
}

bool isInside(const TurnedBox& inner, const PaperBox& outer) {
    return std::ranges::all_of(corners, [&](PaperPoint c) { return outer.contains(inner.at(c.x, c.y)); });
}

}  // namespace velmar::tool
