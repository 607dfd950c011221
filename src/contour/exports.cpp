#include <optional>
#include <span>

#include "contour/centers.h"
#include "contour/levels.h"
#include "contour/refine.h"
#include "contour/result.h"
#include "contour/state.h"
#include "contour/trace.h"
#include "frame/barrier.h"
#include "frame/file.h"
#include "frame/gridFile.h"
#include "frame/state.h"
#include "velmarBaseA.h"

namespace {

using namespace velmar::contour;
using velmar::frame::Failure;
using velmar::frame::FileText;
using velmar::frame::Grid;
using velmar::frame::GridHeader;
using velmar::frame::GridPlace;
using velmar::frame::GridView;
using velmar::frame::guarded;
using velmar::frame::guardedReader;
using velmar::frame::KeptMemory;
using velmar::frame::Outcome;
using velmar::frame::ResultBlock;
using velmar::frame::TextScanner;

/// Whether the grid is refined before it is traced.
enum class Smoothing { refine, none };

/// Nothing when the mode is none or lacks its list.
std::optional<LevelRequest> levelRequest(int mode, float start, float end, float interval,
                                         const float* levels, int count) {
    const std::optional<LevelMode> known = levelMode(mode);
    if (!known || (*known == LevelMode::list && levels == nullptr)) return std::nullopt;
    const std::size_t listed = levels == nullptr || count < 1 ? 0 : static_cast<std::size_t>(count);
    return LevelRequest{*known, start, end, interval, {levels, listed}, count};
}

/// The contour lines of a grid. Null when there is no request, or when a pointer that it needs is null.
ResultBlock contour(const GridView& grid, float missing, const std::optional<LevelRequest>& request,
                    const GridPlace& place, Smoothing smoothing) {
    ContourState& kept = state();
    freeContourLines();
    // A call that is refused has its factors too: contour2DRaw divides by those of the last call, whatever came of it.
    if (smoothing == Smoothing::refine) kept.factors = chooseFactors(grid.nx, grid.ny);
    if (!request || (grid.values == nullptr && grid.size() > 0)) return nullptr;

    const Levels levels = chooseLevels(grid, missing, *request);
    const bool refined = smoothing == Smoothing::refine && (kept.factors.x > 1 || kept.factors.y > 1);
    const Grid fine = refined ? refine(grid, missing, kept.factors) : Grid{};
    KeptMemory memory(kept);
    traceLevels(refined ? fine.view() : grid, missing, levels.values, kept.buffers, kept.lines);
    const ContourHints hints{velmar::frame::state().lastBoldValue, levels.start, request->end,
                             request->interval};
    ResultBlock block = packContours(kept.lines, kept.factors, grid, place, hints);
    freeContourLines();
    memory.succeed();
    return block;
}

Outcome<ResultBlock> contourFile(const char* path, int mode, int count, const float* levels) {
    const std::optional<FileText> text = velmar::frame::readDataFile(path);
    if (!text) return Failure{-1};
    TextScanner in(text->view());
    Outcome<GridHeader> header = readGridHeader(in);
    if (!header) return header.failure();
    velmar::frame::state().lastBoldValue = header->boldValue;
    Outcome<Grid> grid = readGridValues(in, header->field, {.circling = -6, .other = -7});
    if (!grid) return grid.failure();

    KeptMemory memory(state());
    const GridPlace place = placeOf(header->field.lattice);
    std::optional<LevelRequest> request =
        levelRequest(mode, header->startValue, header->endValue, header->interval, levels, count);
    if (request) request->most = mostLevelsOfHeader;
    constexpr float missing = velmar::frame::missingInFiles;
    ResultBlock block = contour(grid->view(), missing, request, place, Smoothing::refine);
    if (levelMode(mode) == LevelMode::automatic) {
        state().lastCenters = packCenters(findGridCenters(grid->view(), missing), place);
    }
    memory.succeed();
    return block;
}

}  // namespace

float* contour2D(const float* grid, float missing, int nx, int ny, int mode, float start, float end,
                 float interval, const float* levels, int count, float x0, float y0, float dx,
                 float dy) noexcept {
    return guarded<float*>(nullptr, [&] {
        const auto request = levelRequest(mode, start, end, interval, levels, count);
        return contour({grid, nx, ny}, missing, request, {x0, y0, dx, dy}, Smoothing::refine).release();
    });
}

float* contour2DRaw(const float* grid, float missing, int nx, int ny, int mode, float start, float end,
                    float interval, const float* levels, int count, float x0, float y0, float dx,
                    float dy) noexcept {
    return guarded<float*>(nullptr, [&] {
        const auto request = levelRequest(mode, start, end, interval, levels, count);
        return contour({grid, nx, ny}, missing, request, {x0, y0, dx, dy}, Smoothing::none).release();
    });
}

float* readCntrData(const char* path, int mode, int count, const float* levels) noexcept {
    if (!levelMode(mode)) return nullptr;
    return guardedReader(-7, [&] { return contourFile(path, mode, count, levels); });
}

float* findCenters(const float* grid, float missing, int nx, int ny, int /*unused*/, float x0, float y0,
                   float dx, float dy) noexcept {
    return guarded<float*>(nullptr, [&]() -> float* {
        const GridView view{grid, nx, ny};
        if (grid == nullptr && view.size() > 0) return nullptr;
        return packCenters(findGridCenters(view, missing), {x0, y0, dx, dy}).release();
    });
}
