#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <span>

#include "frame/barrier.h"
#include "velmarBaseA.h"
#include "wind/differences.h"
#include "wind/streamlines.h"
#include "wind/windFile.h"

namespace {

using namespace velmar::wind;
using velmar::frame::allocateBlock;
using velmar::frame::BlockWriter;
using velmar::frame::Grid;
using velmar::frame::guarded;
using velmar::frame::guardedReader;
using velmar::frame::Lattice;
using velmar::frame::missingInFiles;
using velmar::frame::Outcome;
using velmar::frame::ResultBlock;

/// Element 0 is not the number of elements: hosts know four times the number of values, and the header, cut to
/// 32 bits.
float announcedSize(std::size_t values) {
    return static_cast<float>(static_cast<std::uint32_t>(8 * values + 15));
}

ResultBlock packWind(const WindFile& file) {
    const auto& [header, u, v] = file;
    const Lattice& lattice = header.lattice;
    ResultBlock block = allocateBlock(2 * u.values.size() + 15);
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

Grid speedOf(const WindFile& file) {
    Grid speed = file.u;
    for (std::size_t k = 0; k < speed.values.size(); ++k) {
        const float u = file.u.values[k];
        const float v = file.v.values[k];
        speed.values[k] = std::sqrt(u * u + v * v);
    }
    return speed;
}

ResultBlock drawBySpeed(const WindFile& file, int density) {
    constexpr std::size_t bands = 40;
    std::array<int, bands> colours{};
    std::array<float, bands> levels{};
    std::iota(colours.begin(), colours.end(), 0);
    std::ranges::transform(colours, levels.begin(), [](int k) { return 2.0F * static_cast<float>(k); });
    const Grid speed = speedOf(file);
    return drawStreamlines({file.u.view(), file.v.view(), missingInFiles, missingInFiles},
                           {speed.view(), missingInFiles, {levels, colours}}, density, state());
}

float* differentiateGrids(const FieldPair& fields, const velmar::frame::GridPlace& place,
                          Combination combination) noexcept {
    if (fields.p.values == nullptr || fields.q.values == nullptr) return nullptr;
    return guarded<float*>(nullptr, [&] { return differentiate(fields, place, combination).release(); });
}

/// Writes an output that the host may not want.
template <class T>
void write(T* out, T value) {
    if (out != nullptr) *out = value;
}

}  // namespace

float* readVelmarData11(const char* path) noexcept {
    return guardedReader(-8, [&]() -> Outcome<ResultBlock> {
        Lattice unused{};
        Outcome<WindFile> file = readWindFile(path, unused);
        if (!file) return file.failure();
        return packWind(*file);
    });
}

float* readWindData(const char* path, int density) noexcept {
    return guardedReader(-8, [&]() -> Outcome<ResultBlock> {
        Outcome<WindFile> file = readWindFile(path, state().lattice);
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
        const LineColours lineColours{
            {coloured ? c : nullptr, nx, ny}, cUndef, {{levels, count}, {colours, count}}};
        return drawStreamlines({{u, nx, ny}, {v, nx, ny}, uUndef, vUndef}, lineColours, density, state())
            .release();
    });
}

float* hdiv(const float* p, const float* q, int nx, int ny, float missing, float startLon, float startLat,
            float lonStep, float latStep) noexcept {
    return differentiateGrids({{p, nx, ny}, {q, nx, ny}, missing}, {startLon, startLat, lonStep, latStep},
                              Combination::sum);
}

float* hvor(const float* p, const float* q, int nx, int ny, float missing, float startLon, float startLat,
            float lonStep, float latStep) noexcept {
    return differentiateGrids({{p, nx, ny}, {q, nx, ny}, missing}, {startLon, startLat, lonStep, latStep},
                              Combination::difference);
}

// These two have never written their output; hosts that call them rely on it being left alone.

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
        Outcome<WindFile> file = readWindFile(path, state().lattice);
        if (!file) return file.failure();
        const auto& [header, u, v] = *file;
        // The field is computed nowhere here: hosts get a block of missing values, and call hdiv or hvor.
        ResultBlock block = allocateBlock(u.values.size());
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
