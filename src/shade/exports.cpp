#include <algorithm>
#include <cstdio>
#include <numeric>
#include <vector>

#include "contour/levels.h"
#include "frame/barrier.h"
#include "frame/file.h"
#include "frame/gridFile.h"
#include "frame/messages.h"
#include "shade/byteImage.h"
#include "shade/clip.h"
#include "shade/fill.h"
#include "shade/shading.h"
#include "velmarBaseA.h"

namespace {

using namespace velmar::shade;
using velmar::frame::allocateBlock;
using velmar::frame::Failure;
using velmar::frame::FileText;
using velmar::frame::Grid;
using velmar::frame::GridHeader;
using velmar::frame::guarded;
using velmar::frame::guardedReader;
using velmar::frame::Outcome;
using velmar::frame::ResultBlock;
using velmar::frame::TextScanner;
namespace messages = velmar::frame::messages;

/// The levels that a grid file's header asks for. Contour lines of the file have the same.
std::vector<float> levelsOf(const GridHeader& header) {
    using namespace velmar::contour;
    const LevelRequest request{
        LevelMode::interval, header.startValue, header.endValue, header.interval, {}, 0, mostLevelsOfHeader};
    return chooseLevels({}, velmar::frame::missingInFiles, request).values;
}

Outcome<ResultBlock> shadeGridFile(const char* path, int stripRows) {
    const std::optional<FileText> text = velmar::frame::readDataFile(path);
    if (!text) return Failure{-1};
    TextScanner in(text->view());
    Outcome<GridHeader> header = readGridHeader(in);
    if (!header) return header.failure();
    velmar::frame::progress(messages::fileTitle, {header->title});
    // The code of the header also stands for a value of a grid that circles the globe: hosts know it so.
    Outcome<Grid> grid = readGridValues(in, header->field, {.circling = -5, .other = -6});
    if (!grid) return grid.failure();
    velmar::frame::progress(messages::fileEnd);

    const std::vector<float> levels = levelsOf(*header);
    std::vector<int> colours(levels.size());
    std::iota(colours.begin(), colours.end(), 0);
    const auto listed = ShadeLevels::listed(levels.data(), colours.data(), static_cast<int>(levels.size()));
    return shade({grid->view(), velmar::frame::missingInFiles, listed, stripRows},
                 placeOf(header->field.lattice));
}

ResultBlock shadeByteImage(const char* path, int stripRows, int mode, float level) {
    const std::optional<FileText> file = velmar::frame::readWholeFile(path);
    if (!file) {
        std::fputs(messages::cannotOpenCloudFile, stderr);
        return nullptr;
    }
    const std::optional<ByteImage> image = readByteImage(file->raw());
    if (!image) return nullptr;
    const Grid grid = valuesOf(*image);
    const int colour = 0;
    const auto levels = mode == 1 ? ShadeLevels::listed(&level, &colour, 1) : ShadeLevels::classes(256);
    return shade({grid.view(), undefinedValueOf(*image), levels, stripRows}, placeOf(image->lattice));
}

/// No polygon when there are no points.
PolygonView polygonOf(const float* points, int n) {
    return {points, points == nullptr || n < 1 ? 0 : static_cast<std::size_t>(n)};
}

int pointCount(const std::vector<float>& polygon) { return static_cast<int>(polygon.size() / 2); }

}  // namespace

float* velmarCntrShad(const float* grid, int nx, int ny, const float* levels, const int* colours, int nlev,
                      float undefValue, float x0, float y0, float dx, float dy, int stripRows) noexcept {
    if (levels == nullptr || colours == nullptr) return nullptr;
    return guarded<float*>(nullptr, [&] {
        const auto listed = ShadeLevels::listed(levels, colours, nlev);
        return shade({{grid, nx, ny}, undefValue, listed, stripRows}, {x0, y0, dx, dy}).release();
    });
}

float* velmarCntrShadJ(const float* grid, int nx, int ny, int nClasses, float undefValue, float x0, float y0,
                       float dx, float dy, int stripRows) noexcept {
    return guarded<float*>(nullptr, [&] {
        const auto classes = ShadeLevels::classes(nClasses);
        return shade({{grid, nx, ny}, undefValue, classes, stripRows}, {x0, y0, dx, dy}).release();
    });
}

float* velmarCntrShadD(const float* grid, int nx, int ny, const float* levels, const int* colours, int nlev,
                       float undefValue, int stripRows, const float* xSteps, const float* ySteps) noexcept {
    if (levels == nullptr || colours == nullptr) return nullptr;
    return guarded<float*>(nullptr, [&] {
        const auto listed = ShadeLevels::listed(levels, colours, nlev);
        return shadeUneven({{grid, nx, ny}, undefValue, listed, stripRows}, xSteps, ySteps).release();
    });
}

float* readCntrShadData(const char* path, int /*reserved*/, int stripRows) noexcept {
    return guardedReader(-6, [&] { return shadeGridFile(path, stripRows); });
}

float* readByteShadData(const char* path, int stripRows, int mode, float level) noexcept {
    return guarded<float*>(nullptr, [&] { return shadeByteImage(path, stripRows, mode, level).release(); });
}

float* polygonfill(float* points, int n, float xlo, float ylo, float xhi, float yhi, int* outCount) noexcept {
    if (outCount == nullptr) return points;
    return guarded(points, [&] {
        return fillPolygon(points, n, {xlo, ylo, xhi, yhi}, polygonTools(), *outCount);
    });
}

int Clip(float* points, float xmin, float ymin, float xmax, float ymax, int n) noexcept {
    return guarded(0, [&] {
        const std::vector<float> clipped = clipByRectangle(polygonOf(points, n), {xmin, ymin, xmax, ymax});
        std::copy(clipped.begin(), clipped.end(), points);
        return pointCount(clipped);
    });
}

float* SHClip(const float* points, float ex1, float ey1, float ex2, float ey2, int n,
              int* outCount) noexcept {
    int& count = polygonTools().lastClipCount;
    count = 0;
    float* const block = guarded<float*>(nullptr, [&]() -> float* {
        if (points == nullptr && n > 0) return nullptr;
        const PolygonView polygon = polygonOf(points, n);
        const std::vector<float> clipped = clipByEdge(polygon, {{ex1, ey1}, {ex2, ey2}});
        const std::size_t room = 4 * std::max<std::size_t>(polygon.count, 1);
        ResultBlock result = allocateBlock(room);
        float* const end = std::copy(clipped.begin(), clipped.end(), result.get());
        std::fill(end, result.get() + room, 0.0F);
        count = pointCount(clipped);
        return result.release();
    });
    if (outCount != nullptr) *outCount = count;
    return block;
}

int SHClipPntNum() noexcept { return polygonTools().lastClipCount; }
