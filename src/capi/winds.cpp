#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <optional>
#include <span>
#include <utility>

#include "base/messages.h"
#include "base/progress.h"
#include "capi/barrier.h"
#include "capi/state.h"
#include "files/windFile.h"
#include "velmarBaseA.h"
#include "wind/derivatives.h"
#include "wind/streamlines.h"

namespace velmar::capi {
namespace {

using base::Outcome;
using grid::Grid;
using grid::Lattice;
using grid::missingInFiles;

/// Element 0 is not the number of elements but, by established behaviour, eight times that of the points plus the
/// length of the header, cut to 32 bits.
float announcedSize(std::size_t values) {
    return static_cast<float>(static_cast<std::uint32_t>(8 * values + 15));
}

ResultBlock packWind(const files::WindFile& file) {
    const auto& [header, u, v] = file;
    const Lattice& lattice = header.lattice;
    ResultBlock block = base::allocateFloats(2 * u.values.size() + 15);
    BlockWriter out(block);
    out.append(announcedSize(u.values.size()));
    for (const int field :
         {header.year, header.month, header.day, header.hour, header.forecastHour, header.level})
        out.appendCount(field);
    out.append(std::array{lattice.longitudeStep, lattice.latitudeStep, lattice.startLongitude,
                          lattice.endLongitude, lattice.startLatitude, lattice.endLatitude});
    out.appendCount(header.nx);
    out.appendCount(header.ny);
    out.append(u.values);
    out.append(v.values);
    return block;
}

Grid speedOf(const files::WindFile& file) {
    Grid speed = file.u;
    for (std::size_t k = 0; k < speed.values.size(); ++k) {
        const float u = file.u.values[k];
        const float v = file.v.values[k];
        speed.values[k] = std::sqrt(u * u + v * v);
    }
    return speed;
}

/// The result of streamAnalyse.
ResultBlock packStreamlines(wind::Drawing drawing, const wind::WindField& wind, const Lattice& lattice) {
    if (drawing.arrows.empty()) base::progress(base::messages::noArrows);
    base::GrowingFloats& out = drawing.points;
    out.append(drawing.arrows);
    const std::size_t drawn = out.size();
    // The first of the two elements before the sizes is reserved.
    out.append(std::array{0.0F, -1.0F, static_cast<float>(wind.u.nx), static_cast<float>(wind.u.ny),
                          lattice.startLongitude, lattice.startLatitude, lattice.endLongitude,
                          lattice.endLatitude, lattice.longitudeStep, lattice.latitudeStep});
    const std::span<float> values = out.claim(2 * wind.u.size());
    for (std::size_t k = 0; k < wind.u.size(); ++k) {
        values[2 * k] = wind.u.values[k];
        values[2 * k + 1] = wind.v.values[k];
    }
    const std::size_t elements = out.size();
    ResultBlock block = out.finish();
    // Element 0 is the index of the last element here, not the number of elements as everywhere else.
    block[0] = static_cast<float>(elements - 1);
    block[1] = static_cast<float>(drawn);
    return block;
}

ResultBlock streamlines(const wind::WindField& wind, const wind::LineColours& colours, int density) {
    constexpr std::size_t headElements = 2;
    State& kept = state();
    std::optional<wind::Drawing> drawing = wind::drawStreamlines(wind, colours, kept.windLattice, density,
                                                                 {headElements, kept.streamlineColour});
    if (!drawing) return nullptr;
    const int lastColour = drawing->currentColour;
    ResultBlock block = packStreamlines(std::move(*drawing), wind, kept.windLattice);
    // Only now: a call that runs out of memory leaves nothing behind.
    kept.streamlineColour = lastColour;
    return block;
}

ResultBlock drawBySpeed(const files::WindFile& file, int density) {
    constexpr std::size_t bands = 40;
    std::array<int, bands> colours{};
    std::array<float, bands> levels{};
    std::iota(colours.begin(), colours.end(), 0);
    std::ranges::transform(colours, levels.begin(), [](int k) { return 2.0F * static_cast<float>(k); });
    const Grid speed = speedOf(file);
    return streamlines({file.u.view(), file.v.view(), missingInFiles, missingInFiles},
                       {speed.view(), missingInFiles, {levels, colours}}, density);
}

float* differentiateGrids(const wind::WindPair& wind, const grid::GridPlace& place,
                          wind::WindDerivative derivative) noexcept {
    if (wind.p.values == nullptr || wind.q.values == nullptr) return nullptr;
    return guarded<float*>(nullptr, [&] { return wind::differentiate(wind, place, derivative).release(); });
}

/// Writes an output unless its pointer is null.
template <class T>
void write(T* out, T value) {
    if (out != nullptr) *out = value;
}

}  // namespace
}  // namespace velmar::capi

using namespace velmar;
using namespace velmar::capi;
using base::Outcome;
using grid::Lattice;
using grid::missingInFiles;

float* readVelmarData11(const char* path) noexcept {
    return guardedReader(-8, [&]() -> Outcome<ResultBlock> {
        Lattice unused{};
        Outcome<files::WindFile> file = files::readWindFile(path, unused);
        if (!file) return file.failure();
        return packWind(*file);
    });
}

float* readWindData(const char* path, int density) noexcept {
    return guardedReader(-8, [&]() -> Outcome<ResultBlock> {
        Outcome<files::WindFile> file = files::readWindFile(path, state().windLattice);
        if (!file) return file.failure();
        // A lack of memory from here on gives null, as in streamAnalyse.
        return guarded(ResultBlock(), [&] { return drawBySpeed(*file, density); });
    });
}

float* streamAnalyse(const float* u, const float* v, const float* c, int nx, int ny, float uUndef,
                     float vUndef, float cUndef, int colourFlag, const float* levels, const int* colours,
                     int levelCount, int density) noexcept {
    const bool coloured = colourFlag != 0;
    const bool lacksColours =
        c == nullptr || (levelCount > 0 && colours == nullptr) || (levelCount > 1 && levels == nullptr);
    if (u == nullptr || v == nullptr || (coloured && lacksColours)) return nullptr;
    const auto count = static_cast<std::size_t>(coloured ? std::max(levelCount, 0) : 0);
    return guarded<float*>(nullptr, [&] {
        const wind::LineColours lineColours{
            {coloured ? c : nullptr, nx, ny}, cUndef, {{levels, count}, {colours, count}}};
        return streamlines({{u, nx, ny}, {v, nx, ny}, uUndef, vUndef}, lineColours, density).release();
    });
}

float* hdiv(const float* p, const float* q, int nx, int ny, float missing, float startLon, float startLat,
            float lonStep, float latStep) noexcept {
    return differentiateGrids({{p, nx, ny}, {q, nx, ny}, missing}, {startLon, startLat, lonStep, latStep},
                              wind::WindDerivative::divergence);
}

float* hvor(const float* p, const float* q, int nx, int ny, float missing, float startLon, float startLat,
            float lonStep, float latStep) noexcept {
    return differentiateGrids({{p, nx, ny}, {q, nx, ny}, missing}, {startLon, startLat, lonStep, latStep},
                              wind::WindDerivative::vorticity);
}

// These two do not write their output; hosts that call them rely on its being left unchanged.

int ffhdiv(float* /*out*/, const float* /*p*/, const float* /*q*/, int /*nx*/, int /*ny*/, float /*missing*/,
           float /*startLon*/, float /*startLat*/, float /*lonStep*/, float /*latStep*/) noexcept {
    return 0;
}

int ffhvor(float* /*out*/, const float* /*p*/, const float* /*q*/, int /*nx*/, int /*ny*/, float /*missing*/,
           float /*startLon*/, float /*startLat*/, float /*lonStep*/, float /*latStep*/) noexcept {
    return 0;
}

float* readWindDivVor(const char* path, int /*vorticity*/, float* startLonOut, float* startLatOut,
                      float* lonStepOut, float* latStepOut, int* nxOut, int* nyOut) noexcept {
    return guardedReader(-8, [&]() -> Outcome<ResultBlock> {
        Outcome<files::WindFile> file = files::readWindFile(path, state().windLattice);
        if (!file) return file.failure();
        const auto& [header, u, v] = *file;
        // No field is computed here: hosts get a block of missing values, and call hdiv or hvor.
        ResultBlock block = base::allocateFloats(u.values.size());
        std::fill_n(block.get(), u.values.size(), missingInFiles);
        write(startLonOut, header.lattice.startLongitude);
        write(startLatOut, header.lattice.startLatitude);
        write(lonStepOut, header.lattice.longitudeStep);
        write(latStepOut, header.lattice.latitudeStep);
        write(nxOut, header.nx);
        write(nyOut, header.ny);
        return block;
    });
}
