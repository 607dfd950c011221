#include <cstdio>
#include <numeric>
#include <optional>
#include <vector>

#include "base/keptMemory.h"
#include "base/messages.h"
#include "base/progress.h"
#include "capi/barrier.h"
#include "capi/state.h"
#include "contour/levels.h"
#include "files/byteImage.h"
#include "files/file.h"
#include "files/gridFile.h"
#include "shade/shading.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

using base::Failure;
using base::Outcome;
using grid::Grid;
using grid::GridPlace;
using shade::ShadeLevels;
using shade::ShadePolygon;
using shade::ShadePolygons;
using shade::ShadeRequest;
namespace messages = base::messages;

/// Packs the polygons and their grid. Null when there is no polygon.
ResultBlock packPolygons(const ShadePolygons& list, const grid::GridView& grid, const GridPlace& place) {
    if (list.runs.empty()) return nullptr;
    const std::size_t elements = 12 + 3 * list.runs.size() + 2 * list.points.size() + grid.size();
    ResultBlock block = base::allocateFloats(elements);
    BlockWriter out(block);
    out.appendCount(elements);
    out.appendCount(list.runs.size());
    for (const ShadePolygon& polygon : list.runs) {
        out.appendCount(polygon.pointCount);
        out.append(polygon.level);
        out.appendCount(polygon.colour);
        out.append(list.pointsOf(polygon));
    }
    appendGrid(out, grid, place);
    out.append(0.0F);  // the block is one element longer than its layout needs
    return block;
}

/// Runs `trace` in the memory that is kept for it and packs the polygons. Null when there are no polygons or the
/// tracing fails.
template <class Trace>
ResultBlock tracedAndPacked(const grid::GridView& grid, const GridPlace& place, Trace trace) {
    ShadeWork& work = state().shading;
    base::KeptMemory memory(work);
    if (!trace(work.buffers, work.polygons)) return nullptr;
    ResultBlock block = packPolygons(work.polygons, grid, place);
    memory.succeed();
    return block;
}

ResultBlock shadePlaced(const ShadeRequest& request, const GridPlace& place) {
    return tracedAndPacked(request.grid, place, [&](shade::ShadeBuffers& buffers, ShadePolygons& polygons) {
        return shade::shadeGrid(request, place, buffers, polygons);
    });
}

ResultBlock shadeUneven(const ShadeRequest& request, const shade::GridLineSteps& steps) {
    return tracedAndPacked(request.grid, shade::numberedFromZero,
                           [&](shade::ShadeBuffers& buffers, ShadePolygons& polygons) {
                               return shade::shadeUnevenGrid(request, steps, buffers, polygons);
                           });
}

/// The levels that a grid file's header asks for, the same as for contour lines of the file.
std::vector<float> levelsOf(const files::GridHeader& header) {
    const contour::LevelRequest request{
        contour::LevelMode::interval, header.startValue, header.endValue, header.interval, {}, 0,
        contour::mostLevelsOfHeader};
    return contour::chooseLevels({}, grid::missingInFiles, request).values;
}

Outcome<ResultBlock> shadeGridFile(const char* path, int stripRows) {
    const std::optional<files::FileText> text = files::readDataFile(path);
    if (!text) return Failure{-1};
    base::TextScanner in(text->view());
    Outcome<files::GridHeader> header = files::readGridHeader(in);
    if (!header) return header.failure();
    base::progress(messages::fileTitle, {header->title});
    // A value of a cyclic grid deliberately has the same code as the header.
    Outcome<Grid> grid = files::readGridValues(in, header->field, {.circling = -5, .other = -6});
    if (!grid) return grid.failure();
    base::progress(messages::fileEnd);

    const std::vector<float> levels = levelsOf(*header);
    std::vector<int> colours(levels.size());
    std::iota(colours.begin(), colours.end(), 0);
    const auto listed = ShadeLevels::listed(levels.data(), colours.data(), static_cast<int>(levels.size()));
    return shadePlaced({grid->view(), grid::missingInFiles, listed, stripRows},
                       header->field.lattice.place());
}

ResultBlock shadeByteImage(const char* path, int stripRows, int mode, float level) {
    const std::optional<files::FileText> file = files::readWholeFile(path);
    if (!file) {
        std::fputs(messages::cannotOpenCloudFile, stderr);
        return nullptr;
    }
    const std::optional<files::ByteImage> image = files::readByteImage(file->raw());
    if (!image) return nullptr;
    const Grid grid = files::valuesOf(*image);
    const int colour = 0;
    const auto levels = mode == 1 ? ShadeLevels::listed(&level, &colour, 1) : ShadeLevels::classes(256);
    return shadePlaced({grid.view(), files::undefinedValueOf(*image), levels, stripRows},
                       image->lattice.place());
}

}  // namespace
}  // namespace velmar::capi

using namespace velmar::capi;

float* velmarCntrShad(const float* grid, int nx, int ny, const float* levels, const int* colours, int nlev,
                      float undefValue, float x0, float y0, float dx, float dy, int stripRows) noexcept {
    if (levels == nullptr || colours == nullptr) return nullptr;
    return guarded<float*>(nullptr, [&] {
        const auto listed = ShadeLevels::listed(levels, colours, nlev);
        return shadePlaced({{grid, nx, ny}, undefValue, listed, stripRows}, {x0, y0, dx, dy}).release();
    });
}

float* velmarCntrShadJ(const float* grid, int nx, int ny, int nClasses, float undefValue, float x0, float y0,
                       float dx, float dy, int stripRows) noexcept {
    return guarded<float*>(nullptr, [&] {
        const auto classes = ShadeLevels::classes(nClasses);
        return shadePlaced({{grid, nx, ny}, undefValue, classes, stripRows}, {x0, y0, dx, dy}).release();
    });
}

float* velmarCntrShadD(const float* grid, int nx, int ny, const float* levels, const int* colours, int nlev,
                       float undefValue, int stripRows, const float* xSteps, const float* ySteps) noexcept {
    if (levels == nullptr || colours == nullptr || xSteps == nullptr || ySteps == nullptr) return nullptr;
    return guarded<float*>(nullptr, [&] {
        const auto listed = ShadeLevels::listed(levels, colours, nlev);
        return shadeUneven({{grid, nx, ny}, undefValue, listed, stripRows}, {xSteps, ySteps}).release();
    });
}

float* readCntrShadData(const char* path, int /*reserved*/, int stripRows) noexcept {
    return guardedReader(-6, [&] { return shadeGridFile(path, stripRows); });
}

float* readByteShadData(const char* path, int stripRows, int mode, float level) noexcept {
    return guarded<float*>(nullptr, [&] { return shadeByteImage(path, stripRows, mode, level).release(); });
}
