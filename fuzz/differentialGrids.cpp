#include "capi/state.h"
#include "contour/plain.h"
#include "contour/trace.h"
#include "shade/curveModel.h"
#include "twins.h"
#include "wind/plainStreamlines.h"

namespace velmar::fuzz {

namespace {

std::vector<test::PlainLine> plainLines(const contour::ContourLines& list) {
    std::vector<test::PlainLine> lines;
    for (const contour::ContourLine& line : list.runs) {
        lines.push_back({line.level, {}});
        for (const grid::GridPoint& point : list.pointsOf(line))
            lines.back().xy.insert(lines.back().xy.end(), {point.column, point.row});
    }
    return lines;
}

}  // namespace

void compareTraces(Input& in) {
    const Size size = in.solidSize(2, 30);
    const std::vector<float> levels = in.levels(4);
    const std::vector<float> field = in.values(size.values());
    const grid::GridView grid{field.data(), size.nx, size.ny};
    contour::ContourBuffers& buffers = capi::state().contours.buffers;
    for (const float level : levels) {
        contour::ContourLines list;
        contour::traceLevels(grid, missing, std::vector{level}, buffers, list);
        const auto expected = test::PlainTracer(grid, missing, level, buffers.workBufferFloats).trace();
        const auto lines = plainLines(list);
        require(lines.size() == expected.size(), "contour lines are not as many as the plain way's");
        for (std::size_t k = 0; k < lines.size(); ++k)
            requireSame(lines[k].xy, expected[k].xy, "a contour line is not the plain way's");
    }
}

void compareRefinements(Input& in) {
    const Size size = in.solidSize(1, 16);
    const Size factors{1 + in.below(5), 1 + in.below(5)};
    const float undefined = in.oneIn(4) ? in.oddNumber() : missing;
    const std::vector<float> field = in.values(size.values());
    const grid::GridView grid{field.data(), size.nx, size.ny};
    const grid::Grid fine = grid::refine(grid, undefined, {factors.nx, factors.ny});
    requireSame(fine.values, test::plainRefine(grid, undefined, factors.nx, factors.ny).values,
                "a refined grid is not the plain way's");
}

void compareCentres(Input& in) {
    const Size size = in.solidSize(1, 24);
    const std::vector<float> field = in.values(size.values());
    const Block block(findCenters(field.data(), missing, size.nx, size.ny, 0, 70, 10, 2.5F, -2));
    std::vector<float> expected =
        test::plainCenters({field.data(), size.nx, size.ny}, missing, 70, 10, 2.5F, -2);
    // A class is an integer, which the plain way does not bound.
    for (std::size_t k = 7; k + 1 < expected.size(); k += 7)
        expected[k] = std::clamp(expected[k], static_cast<float>(INT_MIN), 2147483648.0F);
    requireSame(valuesOf(block), expected, "centres are not the plain way's");
}

void compareShadings(Input& in) {
    const Size size = in.solidSize(2, 14);
    test::Field field{{}, size.nx, size.ny, in.levels(5), {}};
    field.colours = in.integers(field.levels.size(), -5, 110);
    field.stripRows = in.below(4);
    field.dx = in.PickValueInArray({0.1F, 2.5F, 1.0F});
    field.dy = in.PickValueInArray({1.0F, -1.25F});
    // Missing rows behind the grid give its traces room in the point buffer, which has the size of the grid.
    const bool roomy = !in.oneIn(4);
    field.values = in.values(size.values());
    if (roomy) field.ny *= 2;
    field.values.resize(Size{field.nx, field.ny}.values(), missing);
    // Crossings of huge steps leave the range of single precision, and with it the plane.
    for (float& value : field.values)
        if (std::fabs(value) > 1e15F && std::isfinite(value)) value = missing;

    const test::ShadingModel model(field);
    const std::vector<test::Polygon> polygons = test::polygonsOf(test::shade(field));
    const std::vector<test::Polygon> expected = model.full ? std::vector<test::Polygon>{} : model.polygons;
    require(polygons.size() == expected.size(), "polygons are not as many as the model's");
    for (std::size_t k = 0; k < polygons.size(); ++k) {
        const bool same = sameBits(polygons[k].level, expected[k].level) &&
                          polygons[k].colour == expected[k].colour &&
                          polygons[k].points == expected[k].points;
        require(same, "a polygon is not the model's");
    }
}

void compareStreamlines(Input& in) {
    const Size size = in.solidSize(1, 20);
    test::PlainWind wind{size.nx, size.ny, {}, {}, {}};
    wind.coloured = in.oneIn(2);
    wind.levels = in.levels(5);
    wind.colours = in.integers(wind.levels.size(), -3, 110);
    wind.density = in.below(10) - 1;
    wind.u = in.values(size.values());
    wind.v = in.values(size.values());
    wind.c = in.values(size.values());
    const test::PlainPlace place{100.1F, 130, -12.3F, 40, -0.7F, 0.3F};
    capi::state().windLattice = {place.startLon, place.endLon, place.lonStep,
                                 place.startLat, place.endLat, place.latStep};
    capi::state().streamlineColour = 7;
    int colour = 7;
    const std::vector<float> expected = test::PlainStreamlines(wind, place, colour).block();
    const Block block(streamAnalyse(wind.u.data(), wind.v.data(), wind.c.data(), wind.nx, wind.ny, wind.undef,
                                    wind.undef, wind.undef, wind.coloured ? 1 : 0, wind.levels.data(),
                                    wind.colours.data(), static_cast<int>(wind.levels.size()), wind.density));
    requireSame(valuesOf(block), expected, "streamlines are not the plain way's");
}

}  // namespace velmar::fuzz
