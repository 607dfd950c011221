// Every export that takes a grid.

#include <array>

#include "capi/state.h"
#include "layouts.h"
#include "levelCount.h"

namespace {

using namespace velmar::fuzz;

/// Where a grid lies.
struct Place {
    float x0, y0, dx, dy;

    explicit Place(Input& in)
        : x0(in.number(-180, 360)), y0(in.number(-90, 90)), dx(in.number(-3, 3)), dy(in.number(-3, 3)) {}
};

/// The levels of a contour call.
struct LevelChoice {
    int mode;
    float start, end, interval;
    std::vector<float> list;
    int count;

    explicit LevelChoice(Input& in)
        : mode(in.oneIn(16) ? in.oddInteger() : in.below(3)),
          start(in.number(-10, 40)),
          end(in.number(-10, 260)),
          interval(in.number(-1, 40)),
          list(in.levels(12)),
          count(mode == 1 ? in.PickValueInArray({5, 10, 30, 1, 0, -1, INT_MIN})
                          : static_cast<int>(list.size())) {}

    bool areVeryMany(const std::vector<float>& grid, const Size& size, float undefined) const {
        const auto known = velmar::contour::levelMode(mode);
        return known && hasVeryManyLevels({grid.data(), size.nx, size.ny}, undefined,
                                          {*known, start, end, interval, list, count});
    }
};

template <auto contour>
void contourGrid(Input& in) {
    const Size size = in.size(40);
    const Place at(in);
    const LevelChoice levels(in);
    const float undefined = in.oneIn(8) ? in.oddNumber() : missing;
    const float* const list = in.orNull(levels.list);
    const std::vector<float> grid = in.values(size.values());
    if (levels.areVeryMany(grid, size, undefined)) return;
    walkContours(Block(contour(in.orNull(grid), undefined, size.nx, size.ny, levels.mode, levels.start,
                               levels.end, levels.interval, list, levels.count, at.x0, at.y0, at.dx, at.dy)));
}

void findGridCentres(Input& in) {
    const Size size = in.size(60);
    const Place at(in);
    std::vector<float> grid = in.values(size.values());
    walkCentres(
        Block(findCenters(in.orNull(grid), missing, size.nx, size.ny, 0, at.x0, at.y0, at.dx, at.dy)));
}

void refineGrid(Input& in) {
    const Size size = in.size(30);
    const Size factors{in.below(7), in.below(7)};
    std::vector<float> grid = in.values(size.values());
    const Block block(gagexps(in.orNull(grid), size.nx, size.ny, factors.nx, factors.ny, in.oddNumber()));
    if (block == nullptr) return;
    walkBare(block, Size{(size.nx - 1) * factors.nx + 1, (size.ny - 1) * factors.ny + 1}.values());
}

/// Levels, colours and strips of a shading call.
struct Bands {
    std::vector<float> levels;
    std::vector<int> colours;
    int stripRows;
    float undefined;

    explicit Bands(Input& in)
        : levels(in.levels(10)),
          colours(in.integers(levels.size(), -3, 110)),
          stripRows(in.oneIn(8) ? in.oddInteger() : in.below(5)),
          undefined(in.oneIn(8) ? in.oddNumber() : missing) {}

    int count(Input& in) const { return in.oneIn(16) ? -3 : static_cast<int>(levels.size()); }
};

void shadeGrid(Input& in) {
    const Size size = in.size(40);
    const Place at(in);
    Bands bands(in);
    const int count = bands.count(in);
    const float* const levels = in.orNull(bands.levels);
    const int* const colours = in.orNull(bands.colours);
    std::vector<float> grid = in.values(size.values());
    walkShading(Block(velmarCntrShad(in.orNull(grid), size.nx, size.ny, levels, colours, count,
                                     bands.undefined, at.x0, at.y0, at.dx, at.dy, bands.stripRows)));
}

void shadeClasses(Input& in) {
    const Size size = in.size(40);
    const Place at(in);
    const int classes = in.below(20) - 1;
    const int stripRows = in.below(5);
    std::vector<float> grid = in.values(size.values());
    walkShading(Block(velmarCntrShadJ(in.orNull(grid), size.nx, size.ny, classes, -1, at.x0, at.y0, at.dx,
                                      at.dy, stripRows)));
}

void shadeUnevenGrid(Input& in) {
    const Size size = in.size(30);
    Bands bands(in);
    const int count = bands.count(in);
    const auto steps = [&](int lines) { return in.values(static_cast<std::size_t>(std::max(lines, 0)) + 1); };
    std::vector<float> xSteps = steps(size.nx);
    std::vector<float> ySteps = steps(size.ny);
    const float* const x = in.orNull(xSteps);
    const float* const y = in.orNull(ySteps);
    std::vector<float> grid = in.values(size.values());
    walkShading(Block(velmarCntrShadD(in.orNull(grid), size.nx, size.ny, bands.levels.data(),
                                      bands.colours.data(), count, bands.undefined, bands.stripRows, x, y)));
}

template <auto kernel>
void differentiate(Input& in) {
    const Size size = in.size(50);
    const Place at(in);
    std::vector<float> p = in.values(size.values());
    std::vector<float> q = in.values(size.values());
    const float* const first = in.orNull(p);
    walkBare(Block(kernel(first, in.orNull(q), size.nx, size.ny, missing, at.x0, at.y0, at.dx, at.dy)),
             size.values());
}

/// These write nothing.
void callEmptyForms(Input& in) {
    const Place at(in);
    std::array<float, 4> out{7, 7, 7, 7};
    const auto before = out;
    const int done = ffhdiv(out.data(), out.data(), nullptr, 2, 2, 0, at.x0, at.y0, at.dx, at.dy) +
                     ffhvor(out.data(), nullptr, out.data(), 2, 2, 0, at.x0, at.y0, at.dx, at.dy);
    require(done == 0 && out == before, "an output is written that hosts rely on");
}

void drawStreamlines(Input& in) {
    const Size size = in.size(24);
    const Place at(in);
    velmar::capi::state().windLattice = {at.x0, at.x0 + 9, at.dx, at.y0, at.y0 + 9, at.dy};
    const int colourFlag = in.below(3);
    Bands bands(in);
    const int count = bands.count(in);
    const int density = in.oneIn(4) ? in.oddInteger() : in.below(12);
    const float undefined = in.oddNumber();
    std::vector<float> u = in.values(size.values());
    std::vector<float> v = in.values(size.values());
    std::vector<float> c = in.values(size.values());
    const float* const levels = in.orNull(bands.levels);
    const int* const colours = in.orNull(bands.colours);
    const float* const eastward = in.orNull(u);
    const float* const northward = in.orNull(v);
    walkStreamlines(Block(streamAnalyse(eastward, northward, in.orNull(c), size.nx, size.ny, missing,
                                        undefined, missing, colourFlag, levels, colours, count, density)));
}

constexpr Target allTargets[] = {contourGrid<contour2D>,
                                 contourGrid<contour2DRaw>,
                                 findGridCentres,
                                 refineGrid,
                                 shadeGrid,
                                 shadeClasses,
                                 shadeUnevenGrid,
                                 differentiate<hdiv>,
                                 differentiate<hvor>,
                                 callEmptyForms,
                                 drawStreamlines};

}  // namespace

std::span<const Target> velmar::fuzz::targets() { return allTargets; }
