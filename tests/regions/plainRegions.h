#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

/// Regions looked up without a thought for speed: each one's bounds, then all of its edges.
namespace velmar::test {

struct PlainRegion {
    PlainRegion(std::string regionName, std::vector<float> regionPoints)
        : name(std::move(regionName)), points(std::move(regionPoints)) {
        for (std::size_t k = 0; k < points.size(); k += 2) {
            west = points[k] < west ? points[k] : west;
            east = points[k] > east ? points[k] : east;
            south = points[k + 1] < south ? points[k + 1] : south;
            north = points[k + 1] > north ? points[k + 1] : north;
        }
    }
    bool boundsHold(float x, float y) const { return west <= x && x <= east && south <= y && y <= north; }

    std::string name;
    std::vector<float> points;
    float west = 999, east = -999, south = 999, north = -999;
};

/// Crossings as they are told: left and, when that is 0, right.
struct PlainFinding {
    std::string name;
    std::string told;
};

inline bool plainCross(float xa, float xb, float y0, const float* p) {
    const float x1 = p[0], y1 = p[1], x2 = p[2], y2 = p[3];
    if (std::max(xa, xb) < std::min(x1, x2) || std::min(xa, xb) > std::max(x1, x2)) return false;
    if (std::max(y1, y2) < y0 || std::min(y1, y2) > y0) return false;
    const float a = (x2 - x1) * (y0 - y1) - (y2 - y1) * (xa - x1);
    const float b = (x2 - x1) * (y0 - y1) - (y2 - y1) * (xb - x1);
    return -a * b >= 0;
}

inline int plainCrossings(const std::vector<float>& points, float xa, float xb, float y) {
    int count = 0;
    for (std::size_t k = 0; k + 3 < points.size(); k += 2) count += plainCross(xa, xb, y, &points[k]) ? 1 : 0;
    return count;
}

inline PlainFinding plainFind(const std::vector<PlainRegion>& regions, float x, float y) {
    std::string told;
    const auto isOdd = [&told](const char* side, int count) {
        told += std::string(side) + " cross number " + std::to_string(count) + " " +
                std::to_string(count % 2) + "\n";
        return count % 2 == 1;
    };
    for (const PlainRegion& region : regions) {
        if (!region.boundsHold(x, y)) continue;
        const int left = plainCrossings(region.points, 0, x, y);
        const bool inside = isOdd("left", left);
        if (inside || (left == 0 && isOdd("right", plainCrossings(region.points, x, 360, y))))
            return {region.name, told};
    }
    return {" ", told};
}

}  // namespace velmar::test
