#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "base/keptMemory.h"
#include "base/threads.h"
#include "capi/barrier.h"
#include "capi/state.h"
#include "contour/centers.h"
#include "contour/levels.h"
#include "contour/trace.h"
#include "files/file.h"
#include "files/gridFile.h"
#include "grid/refine.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

using base::Failure;
using base::Outcome;
using contour::Center;
using contour::ContourLine;
using contour::ContourLines;
using contour::LevelMode;
using contour::LevelRequest;
using grid::Grid;
using grid::GridPlace;
using grid::GridPoint;
using grid::GridView;
using grid::RefinementFactors;

/// Whether the grid is refined before it is traced.
enum class Smoothing { refine, none };

/// Drawing parameters that travel with contour lines.
struct ContourHints {
    float boldValue;
    float start;
    float end;
    float interval;
};

/// Packs lines and their grid. Positions on the traced grid become degrees.
ResultBlock packContours(const ContourLines& lines, const RefinementFactors& factors, const GridView& grid,
                         const GridPlace& place, const ContourHints& hints) {
    const std::size_t elements = 15 + 3 * lines.runs.size() + 2 * lines.points.size() + grid.size();
    ResultBlock block = base::allocateFloats(elements);
    BlockWriter out(block);
    out.appendCount(elements);
    out.appendCount(lines.runs.size());
    float* const packed = out.claim(3 * lines.runs.size() + 2 * lines.points.size()).data();
    const double pointsEach = static_cast<double>(lines.points.size()) /
                              static_cast<double>(std::max<std::size_t>(lines.runs.size(), 1));
    base::shareWork(lines.runs.size(), 3.0 * pointsEach, [&](std::size_t first, std::size_t last) {
        for (std::size_t k = first; k < last; ++k) {
            const ContourLine& line = lines.runs[k];
            BlockWriter outLine(packed + 3 * k + 2 * line.firstPoint);
            outLine.appendCount(line.pointCount);
            outLine.append(line.level);
            outLine.append(0.0F);
            for (const GridPoint& point : lines.pointsOf(line)) {
                const auto [longitude, latitude] = grid::degreesOf(point, place, factors);
                outLine.append(longitude);
                outLine.append(latitude);
            }
        }
    });
    appendGrid(out, grid, place);
    out.append(std::array{hints.boldValue, hints.start, hints.end, hints.interval});
    return block;
}

/// Packs centres into the result of findCenters.
ResultBlock packCenters(std::span<const Center> centers, const GridPlace& place) {
    ResultBlock block = base::allocateFloats(7 * centers.size() + 2);
    BlockWriter out(block);
    out.appendCount(centers.size());
    for (const Center& center : centers) {
        out.append(center.high ? 1.0F : -1.0F);
        out.append(static_cast<float>(center.column) * place.longitudeStep + place.startLongitude);
        out.append(static_cast<float>(center.row) * place.latitudeStep + place.startLatitude);
        out.append(center.value);
        out.append(center.normalisedStrength);
        out.appendCount(center.stepCount);
        out.appendCount(center.strengthClass);
    }
    out.append(0.0F);
    return block;
}

/// Nullopt for an unknown mode, and for mode 2 without a list.
std::optional<LevelRequest> levelRequest(int mode, float start, float end, float interval,
                                         const float* levels, int count) {
    const std::optional<LevelMode> known = contour::levelMode(mode);
    if (!known || (*known == LevelMode::list && levels == nullptr)) return std::nullopt;
    const std::size_t listed = levels == nullptr || count < 1 ? 0 : static_cast<std::size_t>(count);
    return LevelRequest{*known, start, end, interval, {levels, listed}, count};
}

/// The contour lines of a grid. Null when there is no request, or when a pointer that it needs is null.
ResultBlock contourLines(const GridView& grid, float missing, const std::optional<LevelRequest>& request,
                         const GridPlace& place, Smoothing smoothing) {
    State& kept = state();
    ContourWork& work = kept.contours;
    work.lines.clear();
    // Stored even by a call that is refused: contour2DRaw divides by the factors of the last call, whatever its result.
    if (smoothing == Smoothing::refine) kept.factors = grid::chooseFactors(grid.nx, grid.ny);
    if (!request || (grid.values == nullptr && grid.size() > 0)) return nullptr;

    const contour::Levels levels = contour::chooseLevels(grid, missing, *request);
    const bool refined = smoothing == Smoothing::refine && (kept.factors.x > 1 || kept.factors.y > 1);
    const Grid fine = refined ? grid::refine(grid, missing, kept.factors) : Grid{};
    base::KeptMemory memory(work);
    contour::traceLevels(refined ? fine.view() : grid, missing, levels.values, work.buffers, work.lines);
    const ContourHints hints{kept.lastBoldValue, levels.start, request->end, request->interval};
    ResultBlock block = packContours(work.lines, kept.factors, grid, place, hints);
    work.lines.clear();
    memory.succeed();
    return block;
}

Outcome<ResultBlock> contourFile(const char* path, int mode, int count, const float* levels) {
    const std::optional<files::FileText> text = files::readDataFile(path);
    if (!text) return Failure{-1};
    base::TextScanner in(text->view());
    Outcome<files::GridHeader> header = files::readGridHeader(in);
    if (!header) return header.failure();
    state().lastBoldValue = header->boldValue;
    Outcome<Grid> grid = files::readGridValues(in, header->field, {.circling = -6, .other = -7});
    if (!grid) return grid.failure();

    base::KeptMemory memory(state().contours);
    const GridPlace place = header->field.lattice.place();
    std::optional<LevelRequest> request =
        levelRequest(mode, header->startValue, header->endValue, header->interval, levels, count);
    if (request) request->most = contour::mostLevelsOfHeader;
    constexpr float missing = grid::missingInFiles;
    ResultBlock block = contourLines(grid->view(), missing, request, place, Smoothing::refine);
    if (contour::levelMode(mode) == LevelMode::automatic) {
        state().lastCenters = packCenters(contour::findGridCenters(grid->view(), missing), place);
    }
    memory.succeed();
    return block;
}

}  // namespace
}  // namespace velmar::capi

using namespace velmar;
using namespace velmar::capi;

float* contour2D(const float* grid, float missing, int nx, int ny, int mode, float start, float end,
                 float interval, const float* levels, int count, float x0, float y0, float dx,
                 float dy) noexcept {
    return guarded<float*>(nullptr, [&] {
        const auto request = levelRequest(mode, start, end, interval, levels, count);
        return contourLines({grid, nx, ny}, missing, request, {x0, y0, dx, dy}, Smoothing::refine).release();
    });
}

float* contour2DRaw(const float* grid, float missing, int nx, int ny, int mode, float start, float end,
                    float interval, const float* levels, int count, float x0, float y0, float dx,
                    float dy) noexcept {
    return guarded<float*>(nullptr, [&] {
        const auto request = levelRequest(mode, start, end, interval, levels, count);
        return contourLines({grid, nx, ny}, missing, request, {x0, y0, dx, dy}, Smoothing::none).release();
    });
}

float* readCntrData(const char* path, int mode, int count, const float* levels) noexcept {
    if (!contour::levelMode(mode)) return nullptr;
    return guardedReader(-7, [&] { return contourFile(path, mode, count, levels); });
}

float* findCenters(const float* grid, float missing, int nx, int ny, int /*unused*/, float x0, float y0,
                   float dx, float dy) noexcept {
    return guarded<float*>(nullptr, [&]() -> float* {
        const GridView view{grid, nx, ny};
        if (grid == nullptr && view.size() > 0) return nullptr;
        return packCenters(contour::findGridCenters(view, missing), {x0, y0, dx, dy}).release();
    });
}
