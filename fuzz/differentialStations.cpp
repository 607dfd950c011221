#include "analysis/plainAnalyses.h"
#include "triangles/plainTriangles.h"
#include "twins.h"

namespace velmar::fuzz {

namespace {

/// Stations in and around an area that begins at 0, 0; many at whole degrees, some at one place. Their places are
/// numbers that the plain ways can count in whole grid steps.
test::StationList someStations(Input& in, int most, float degreesEast, float degreesNorth) {
    const auto count = static_cast<std::size_t>(in.below(most + 1));
    const auto placed = [&](float degrees) {
        std::vector<float> places = in.values(count);
        for (float& place : places) {
            place = std::isfinite(place) ? std::fmod(place * 0.75F, degrees + 2) : 1;
        }
        return places;
    };
    test::StationList list;
    list.value = in.values(count);
    list.lon = placed(degreesEast);
    list.lat = placed(degreesNorth);
    return list;
}

std::vector<float> someValuesOf(const Block& block, const test::Nodes& nodes) {
    require(block != nullptr, "an analysis gives nothing");
    walkBare(block, nodes.count());
    return {block.get(), block.get() + nodes.count()};
}

}  // namespace

void compareBarnes(Input& in) {
    const int east = 5 + in.below(30);
    const int north = 5 + in.below(25);
    const test::Nodes nodes = test::nodesBetween(2 + in.below(16), 2 + in.below(14), 0,
                                                 static_cast<float>(east), 0, static_cast<float>(north));
    const float kappa = in.between(0, 2) + 0.05F;
    const float radius = in.number(1, 30);
    const float gamma = in.between(0, 1) + 0.1F;
    const float mask = in.oneIn(3) ? in.between(0, 8) : 0;
    const test::StationList s = someStations(in, 30, nodes.x1, nodes.y1);
    const Block block(barnes(kappa, radius, gamma, nodes.nx, nodes.ny, 0, east, 0, north, s.count(),
                             s.lon.data(), s.lat.data(), s.value.data(), mask));
    requireSame(someValuesOf(block, nodes), test::plainBarnes(kappa, radius, gamma, nodes, s, mask),
                "an analysis after Barnes is not the plain way's");
}

void compareCressman(Input& in) {
    const test::Nodes nodes = test::nodesBetween(2 + in.below(20), 2 + in.below(16), 0, 5 + in.between(0, 30),
                                                 0, 5 + in.between(0, 25));
    std::vector<float> radii(static_cast<std::size_t>(in.below(6)));
    for (float& radius : radii) radius = in.number(0, 25);
    const float mask = in.oneIn(3) ? in.between(0, 8) : 0;
    const test::StationList s = someStations(in, 40, nodes.x1, nodes.y1);
    const Block block(cressman(static_cast<int>(radii.size()), radii.data(), nodes.nx, nodes.ny, 0, nodes.x1,
                               0, nodes.y1, s.count(), s.lon.data(), s.lat.data(), s.value.data(), mask));
    if (block == nullptr) return;  // the values add up to -9999
    requireSame(someValuesOf(block, nodes), test::plainCressman(radii, nodes, s, mask),
                "an analysis after Cressman is not the plain way's");
}

void compareNearest(Input& in) {
    const test::Nodes nodes{1 + in.below(20), 1 + in.below(16), 0, 0, in.number(-2, 2), in.number(-2, 2)};
    const float radius = in.number(0, 9);
    const bool inBoxOnly = in.oneIn(2);
    const test::StationList s = someStations(in, 40, 40, 30);
    require(
        test::foundNearest(nodes, s, radius, inBoxOnly) == test::plainNearest(nodes, s, radius, inBoxOnly),
        "nearest stations are not the plain way's");
}

void compareTriangles(Input& in) {
    std::vector<float> levels = in.levels(6);
    test::StationList s = someStations(in, 60, 60, 50);
    if (in.oneIn(8) && s.count() > 0) s.lon.back() = in.oddNumber();
    const Block block(
        reinterpret_cast<float*>(SanJiao(s.lon.data(), s.lat.data(), s.value.data(), levels.data(), s.count(),
                                         2, 0, 0, static_cast<int>(levels.size()))));
    if (s.count() < 3) return;
    // The values have been moved off the levels by now.
    test::PlainTriangles plain(s.lon, s.lat, s.value);
    plain.network();
    std::vector<float> expected{0};
    for (const float level : levels) {
        const std::vector<float> lines = plain.lines(level);
        expected.insert(expected.end(), lines.begin(), lines.end());
    }
    expected[0] = static_cast<float>(expected.size());
    require((block == nullptr) == (expected.size() == 1),
            "there are lines, or none, other than by the plain way");
    if (block != nullptr) requireSame(valuesOf(block), expected, "lines of stations are not the plain way's");
}

}  // namespace velmar::fuzz
