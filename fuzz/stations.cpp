// Every export that takes stations, polygons, places or integers. Diagnostic files go to the current directory.

#include <array>

#include "areas.h"
#include "layouts.h"

namespace {

using namespace velmar::fuzz;

/// Stations, many of them at whole degrees and some at one place.
struct Stations {
    std::vector<float> lon, lat, value;

    Stations(Input& in, int most, Size degrees) {
        const auto count = static_cast<std::size_t>(in.below(most + 1));
        const bool likely = !in.oneIn(4);
        value = in.values(count);
        lon = likely ? placed(in, count, degrees.nx) : in.values(count);
        lat = likely ? placed(in, count, degrees.ny) : in.values(count);
    }

    int count() const { return static_cast<int>(value.size()); }

private:
    /// Whole, half and finer degrees from 0 to a bound.
    static std::vector<float> placed(Input& in, std::size_t count, int degrees) {
        std::vector<float> places = in.values(count);
        for (float& place : places) {
            if (!(std::fabs(place) < 1e6F)) continue;
            place = std::fmod(place * 0.75F, static_cast<float>(degrees));
        }
        return places;
    }
};

constexpr Size likelyArea{40, 30};

template <class Number>
struct Bounds {
    Number west, east, south, north;
};

void callBarnes(Input& in) {
    const Size size = in.size(24);
    const auto bound = [&](int degrees) { return in.oneIn(16) ? in.oddInteger() : in.below(degrees); };
    const Bounds<int> b{bound(5), bound(45), bound(5), bound(35)};
    const float kappa = in.oneIn(4) ? in.oddNumber() : in.between(0, 2);
    const float radius = in.number(0, 30);
    const float gamma = in.oneIn(4) ? in.oddNumber() : in.between(0, 1);
    const float mask = in.number(-1, 8);
    Stations s(in, 30, likelyArea);
    const float* const lon = in.orNull(s.lon);
    const float* const lat = in.orNull(s.lat);
    const int count = in.oneIn(32) ? -1 : s.count();
    walkBare(Block(barnes(kappa, radius, gamma, size.nx, size.ny, b.west, b.east, b.south, b.north, count,
                          lon, lat, in.orNull(s.value), mask)),
             size.values());
}

void callCressman(Input& in) {
    const Size size = in.size(24);
    const Bounds<float> b{in.number(0, 5), in.number(0, 45), in.number(0, 5), in.number(0, 35)};
    std::vector<float> radii(static_cast<std::size_t>(in.below(7)));
    for (float& radius : radii) radius = in.number(0, 25);
    const int scans = in.oneIn(16) ? -2 : static_cast<int>(radii.size());
    const float mask = in.number(-1, 8);
    Stations s(in, 40, likelyArea);
    const float* const lon = in.orNull(s.lon);
    const float* const lat = in.orNull(s.lat);
    walkBare(Block(cressman(scans, in.orNull(radii), size.nx, size.ny, b.west, b.east, b.south, b.north,
                            s.count(), lon, lat, in.orNull(s.value), mask)),
             size.values());
}

void spreadNearest(Input& in) {
    const Area a(in);
    const float radius = in.number(-1, 20);
    Stations s(in, 60, {360, 90});
    const float* const lon = in.orNull(s.lon);
    const float* const lat = in.orNull(s.lat);
    walkNearestField(Block(TqqOA(lon, lat, in.orNull(s.value), s.count(), a.autoBounds, a.startLon, a.endLon,
                                 a.startLat, a.endLat, a.latStep, a.lonStep, radius)));
}

void contourStations(Input& in) {
    const int mode = in.oneIn(16) ? in.oddInteger() : in.below(3);
    const float start = in.number(-10, 40);
    const float interval = in.number(-1, 20);
    std::vector<float> levels = in.levels(60);
    const int levelCount = in.oneIn(16) ? -1 : static_cast<int>(levels.size());
    Stations s(in, 120, {60, 50});
    const float* const x = in.orNull(s.lon);
    const float* const y = in.orNull(s.lat);
    float* const values = in.oneIn(32) ? nullptr : s.value.data();
    walkLinesToEnd(Block(reinterpret_cast<float*>(
        SanJiao(x, y, values, in.orNull(levels), s.count(), mode, start, interval, levelCount))));
}

void measureGreatCircle(Input& in) {
    std::array<float, 4> place{};
    for (float& degrees : place) degrees = in.number(-180, 360);
    float bearing = 0, angle = 0, distance = 0;
    const bool wanted = !in.oneIn(16);
    FJJS2(place[0], place[1], place[2], place[3], wanted ? &bearing : nullptr, &angle,
          wanted ? &distance : nullptr);
    const auto liesIn = [](float value, float most) {
        return std::isnan(value) || (value >= 0 && value <= most);
    };
    require(liesIn(bearing, 6.2832F) && liesIn(angle, 3.1416F), "an angle is beyond the circle");
    require(liesIn(distance, 20016), "a place is farther than the other end of the earth");
}

/// A polygon of up to so many points.
std::vector<float> polygon(Input& in, int most) {
    return in.values(2 * static_cast<std::size_t>(in.below(most + 1)));
}

int pointCount(const std::vector<float>& pairs) { return static_cast<int>(pairs.size() / 2); }

void fill(Input& in) {
    const Bounds<float> b{in.number(-2, 9), in.number(0, 40), in.number(-2, 9), in.number(0, 40)};
    std::vector<float> points = polygon(in, 40);
    const int n = in.oneIn(32) ? -1 : pointCount(points);
    float* const given = in.oneIn(32) ? nullptr : points.data();
    int count = -1;
    float* const end = polygonfill(given, n, b.west, b.south, b.east, b.north, &count);
    if (n < 3 || given == nullptr)
        return require(end == given && count == 0, "less than a triangle is filled");
    require(count >= 0 && count < 2 * n, "an outline has too many points");
    float* const start = end - 2 * count;
    if (n < 10) return;
    walkAll(Block(start));
}

void clip(Input& in) {
    const Bounds<float> b{in.number(-2, 9), in.number(0, 40), in.number(-2, 9), in.number(0, 40)};
    std::vector<float> points = polygon(in, 60);
    const int n = pointCount(points);
    points.resize(static_cast<std::size_t>(81 * n / 16) * 2);
    float* const given = in.oneIn(32) ? nullptr : points.data();
    const int left = Clip(given, b.west, b.south, b.east, b.north, n);
    require(left >= 0 && left <= 81 * n / 16, "a clipped polygon has too many points");
}

void clipByEdge(Input& in) {
    const Bounds<float> b{in.number(-2, 9), in.number(0, 40), in.number(-2, 9), in.number(0, 40)};
    std::vector<float> points = polygon(in, 60);
    const int n = in.oneIn(32) ? INT_MIN : pointCount(points);
    int count = -1;
    const Block block(SHClip(in.orNull(points), b.west, b.south, in.oneIn(4) ? b.west : b.east,
                             in.oneIn(4) ? b.south : b.north, n, in.oneIn(16) ? nullptr : &count));
    require(SHClipPntNum() <= std::max(n, 0) * 3 / 2, "a clipped polygon has too many points");
    if (block != nullptr) walkBare(block, 4 * static_cast<std::size_t>(std::max(n, 1)));
}

void callProbes(Input& in) {
    int sum = 0;
    require(mySum(in.oddInteger(), in.oddInteger(), &sum) == sum, "a sum is told twice, and differently");
    const auto count = static_cast<std::size_t>(in.below(9));
    std::vector<int> integers = in.integers(count, -9, 9);
    TestArrayOfInts(in.oneIn(8) ? nullptr : integers.data(), in.oneIn(8) ? INT_MIN : static_cast<int>(count));

    auto* array = static_cast<int*>(std::calloc(5, sizeof(int)));
    int length = in.below(6) - 1;
    TestRefArrayOfInts(in.oneIn(8) ? nullptr : &array, in.oneIn(8) ? nullptr : &length);
    std::free(array);
}

constexpr Target allTargets[] = {callBarnes, callCressman, spreadNearest, contourStations, measureGreatCircle,
                                 fill,       clip,         clipByEdge,    callProbes};

}  // namespace

std::span<const Target> velmar::fuzz::targets() { return allTargets; }
